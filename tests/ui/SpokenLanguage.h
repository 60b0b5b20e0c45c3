#pragma once

#include <QCoreApplication>
#include <QLocale>

#include "core/Language.h"
#include "ui/PseudoLanguage.h"
#include "ui/shell/Languages.h"

namespace broomtide::test {

/// The window speaks another language as long as this lives, and English again afterwards.
class SpokenLanguage {
 public:
  /// The first of these that it speaks, or "pseudo", with dates that have no letters.
  explicit SpokenLanguage(const QStringList& languages) {
    const bool isPseudo = languages == QStringList(QStringLiteral("pseudo"));
    ui::languages::use(isPseudo ? QStringList(QStringLiteral("zh_CN")) : languages);
    if (!isPseudo) return;
    forget();
    QCoreApplication::installTranslator(new PseudoLanguage(QCoreApplication::instance()));
  }

  ~SpokenLanguage() {
    forget();
    QLocale::setDefault(QLocale::c());
    setLanguage("en_US");
  }

  SpokenLanguage(const SpokenLanguage&) = delete;
  SpokenLanguage& operator=(const SpokenLanguage&) = delete;

 private:
  static void forget() { qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>()); }
};

}  // namespace broomtide::test
