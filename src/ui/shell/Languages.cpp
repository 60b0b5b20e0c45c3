// Languages and translators.
//
// Texts in the sources are English. The build compiles translations/broomtide_<locale>.ts and keeps
// the results as resources of the program. For the first preferred language that has one, use()
// installs two translators: that of Qt's own texts, where Qt is installed with it, and ours. The
// one installed last is asked first. English needs none.
//
// The locale is the preferred one, not that of the translation, so de_AT has broomtide_de.ts with
// Austrian numbers. It is set for Qt, and for the dates and the order of names in the engine.
//
// tr() finds the texts of the window by class; those of the engine have the context "Engine"
// (EngineText). No widget handles a LanguageChange event, so the language is set before the first.

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

// Each script is a language of its own, as in zh_CN and zh_TW; countries share one.
bool isSameLanguage(const QLocale& one, const QLocale& other) {
  return one.language() == other.language() && one.script() == other.script();
}

// LANGUAGE is ignored in the C locale, as gettext does.
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
