#include "ui/shell/Languages.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "core/DateText.h"

namespace broomtide::ui::languages {
namespace {

const QString folder = QStringLiteral(":/translations");
const QString prefix = QStringLiteral("broomtide_");

// Languages that are written in several ways are one for each of them; countries share one.
bool isSameLanguage(const QLocale& one, const QLocale& other) {
  return one.language() == other.language() && one.script() == other.script();
}

// LANGUAGE counts only beside one of these, and not beside C, as in other programs.
bool isLanguageSet() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const QByteArray name = qgetenv(variable);
    if (!name.isEmpty()) return name != "C" && !name.startsWith("C.") && name != "POSIX";
  }
  return false;
}

void install(const QString& file, const QString& place) {
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (translator->load(file, place)) {
    QCoreApplication::installTranslator(translator);
  } else {
    delete translator;  // Qt's own texts are not installed everywhere
  }
}

void setLocale(const QLocale& language) {
  QLocale::setDefault(language);
  setLanguage(language.name().toStdString());
}

}  // namespace

QStringList preferred() {
  return isLanguageSet() ? QLocale::system().uiLanguages() : QStringList();
}

QStringList builtIn() {
  QStringList languages;
  for (const QString& file : QDir(folder).entryList({prefix + "*.qm"}, QDir::Files, QDir::Name))
    languages << file.chopped(3).mid(prefix.size());
  return languages;
}

void use(const QStringList& languages) {
  const QStringList known = builtIn();
  for (const QString& name : languages) {
    const QLocale language(name);
    if (language.language() == QLocale::English) return setLocale(language);
    for (const QString& translation : known) {
      if (!isSameLanguage(language, QLocale(translation))) continue;
      install("qtbase_" + translation, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
      install(prefix + translation, folder);
      return setLocale(language);
    }
  }
}

}  // namespace broomtide::ui::languages
