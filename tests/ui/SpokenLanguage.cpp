#include "ui/SpokenLanguage.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include "core/DateText.h"
#include "ui/shell/Languages.h"

namespace broomtide::test {
namespace {

const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
const QString accented = QStringLiteral("ÁƁÇÐÉƑĜĤÍĴĶĽṀÑÓÞɊŔŠŢÚṼŴẊÝŽáƀçðéƒĝĥíĵķľɱñóþɋŕšţúṽŵẋýž");

class PseudoLanguage final : public QTranslator {
 public:
  using QTranslator::QTranslator;

  bool isEmpty() const override { return false; }

  QString translate(const char*, const char* text, const char*, int) const override {
    const QString original = QString::fromUtf8(text);
    QString result(u'⟦');
    for (qsizetype at = 0; at < original.size(); ++at) {
      const qsizetype letter = letters.indexOf(original[at]);
      if (isPlaceholder(original, at)) {
        result += original.mid(at++, 2);
      } else if (letter < 0) {  // what is shortened ends with other dots
        result += original[at] == u'…' ? QChar(u'‥') : original[at];
      } else {
        const bool isLong = QStringView(u"AEIaei").contains(original[at]);
        result += QString(isLong ? 2 : 1, accented[letter]);
      }
    }
    return result + u'⟧';
  }

 private:
  static bool isPlaceholder(const QString& text, qsizetype at) {
    return text[at] == u'%' && at + 1 < text.size() &&
           (text[at + 1] == u'n' || text[at + 1].isDigit());
  }
};

void forget() { qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>()); }

}  // namespace

SpokenLanguage::SpokenLanguage(const QStringList& languages) {
  const bool isPseudo = languages == QStringList("pseudo");
  ui::languages::use(isPseudo ? QStringList("zh_CN") : languages);
  if (!isPseudo) return;
  forget();
  QCoreApplication::installTranslator(new PseudoLanguage(QCoreApplication::instance()));
}

SpokenLanguage::~SpokenLanguage() {
  forget();
  QLocale::setDefault(QLocale::c());
  setLanguage("en_US");
}

}  // namespace broomtide::test
