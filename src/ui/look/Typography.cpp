#include "ui/look/Typography.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>

namespace broomtide::ui {
namespace {

// Sizes are given for a body text of 13 pixels and grow with the user's own.
QFont sized(QFont font, double pixels, QFont::Weight weight) {
  constexpr double body = 13;
  const double scale = QFontInfo(QApplication::font()).pixelSize() / body;
  font.setPixelSize(qRound(pixels * scale));
  font.setWeight(weight);
  return font;
}

QFont text(double pixels, QFont::Weight weight) {
  return sized(QApplication::font(), pixels, weight);
}

QFont code(double pixels) {
  return sized(QFontDatabase::systemFont(QFontDatabase::FixedFont), pixels, QFont::Normal);
}

}  // namespace

QFont fontFor(TextStyle style) {
  switch (style) {
    case TextStyle::display:
      return text(42, QFont::Bold);
    case TextStyle::largeTitle:
      return text(24, QFont::Bold);
    case TextStyle::secondTitle:
      return text(19, QFont::Bold);
    case TextStyle::headline:
      return text(15, QFont::DemiBold);
    case TextStyle::body:
      return text(13, QFont::Normal);
    case TextStyle::medium:
      return text(13, QFont::Medium);
    case TextStyle::small:
      return text(12, QFont::Normal);
    case TextStyle::smallBold:
      return text(12, QFont::DemiBold);
    case TextStyle::smallest:
      return text(11, QFont::Normal);
    case TextStyle::monospaced:
      return code(13);
    case TextStyle::smallMonospaced:
      break;
  }
  return code(12);
}

int lineHeight(const QFont& font) { return QFontMetrics(font).height(); }

}  // namespace broomtide::ui
