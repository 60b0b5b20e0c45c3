#include "ui/PseudoLanguage.h"

namespace broomtide::test {
namespace {

const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
const QString accented = QStringLiteral("ÁƁÇÐÉƑĜĤÍĴĶĽṀÑÓÞɊŔŠŢÚṼŴẊÝŽáƀçðéƒĝĥíĵķľɱñóþɋŕšţúṽŵẋýž");

// A placeholder stays, with its letter.
bool isPlaceholder(const QString& text, qsizetype at) {
  return text[at] == u'%' && at + 1 < text.size() &&
         (text[at + 1] == u'n' || text[at + 1].isDigit());
}

}  // namespace

QString PseudoLanguage::translate(const char*, const char* text, const char*, int) const {
  const QString original = QString::fromUtf8(text);
  QString result(u'⟦');
  for (qsizetype at = 0; at < original.size(); ++at) {
    const qsizetype letter = letters.indexOf(original[at]);
    if (isPlaceholder(original, at)) {
      result += original.mid(at++, 2);
    } else if (original[at] == u'…') {
      result += u'‥';  // what is shortened ends with the other one
    } else if (letter < 0) {
      result += original[at];
    } else {
      const bool isLong = QStringView(u"AEIaei").contains(original[at]);
      result += QString(isLong ? 2 : 1, accented[letter]);
    }
  }
  return result + u'⟧';
}

}  // namespace broomtide::test
