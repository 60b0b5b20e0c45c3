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
  explicit SpokenLanguage(const QStringList& languages) { ui::languages::use(languages); }

  /// The pseudo-language, with dates and sizes that have no letters.
  SpokenLanguage() : SpokenLanguage({QStringLiteral("zh_CN")}) {
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
