#include "ui/look/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>

namespace broomtide::ui {
namespace {

// Sizes are for an application font of 13 pixels and scale with the user's.
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

Tone toneOf(SafetyLevel level) {
  switch (level) {
    case SafetyLevel::safe:
      return Tone::safe;
    case SafetyLevel::usuallySafe:
      return Tone::usuallySafe;
    case SafetyLevel::reviewFirst:
      break;
  }
  return Tone::reviewFirst;
}

const Theme& Theme::light() {
  static const Theme theme{.window = QColor("#f5f7f7"),
                           .card = QColor("#ffffff"),
                           .cardHovered = QColor("#f0f6f5"),
                           .border = QColor("#dfe5e5"),
                           .text = QColor("#172122"),
                           .secondary = QColor("#4d5a5c"),
                           .tertiary = QColor("#626f71"),
                           .accent = QColor("#0b746f"),
                           .onAccent = QColor("#ffffff"),
                           .safe = QColor("#17703a"),
                           .usuallySafe = QColor("#955000"),
                           .reviewFirst = QColor("#b52a26"),
                           .disabled = QColor("#98a3a4")};
  return theme;
}

const Theme& Theme::dark() {
  static const Theme theme{.window = QColor("#15191a"),
                           .card = QColor("#1e2425"),
                           .cardHovered = QColor("#252d2e"),
                           .border = QColor("#323b3d"),
                           .text = QColor("#eef2f2"),
                           .secondary = QColor("#b3bec0"),
                           .tertiary = QColor("#98a4a6"),
                           .accent = QColor("#43c6bd"),
                           .onAccent = QColor("#05201e"),
                           .safe = QColor("#63cb83"),
                           .usuallySafe = QColor("#f0a650"),
                           .reviewFirst = QColor("#ff8278"),
                           .disabled = QColor("#667173")};
  return theme;
}

const Theme& Theme::of(const QPalette& palette) {
  const QColor behind = palette.color(QPalette::Active, QPalette::Window);
  const QColor inFront = palette.color(QPalette::Active, QPalette::WindowText);
  return behind.lightness() < inFront.lightness() || behind.lightness() < 100 ? dark() : light();
}

QColor Theme::colour(Tone tone) const {
  switch (tone) {
    case Tone::primary:
      return text;
    case Tone::secondary:
      return secondary;
    case Tone::tertiary:
      return tertiary;
    case Tone::accent:
      return accent;
    case Tone::safe:
      return safe;
    case Tone::usuallySafe:
      return usuallySafe;
    case Tone::reviewFirst:
      break;
  }
  return reviewFirst;
}

QColor Theme::faint(QColor colour) {
  constexpr float opacity = 0.12F;
  colour.setAlphaF(opacity);
  return colour;
}

QPalette Theme::palette() const {
  QPalette result;
  result.setColor(QPalette::Window, window);
  result.setColor(QPalette::WindowText, text);
  result.setColor(QPalette::Base, card);
  result.setColor(QPalette::AlternateBase, window);
  result.setColor(QPalette::Text, text);
  result.setColor(QPalette::PlaceholderText, tertiary);
  result.setColor(QPalette::Button, card);
  result.setColor(QPalette::ButtonText, text);
  result.setColor(QPalette::Highlight, accent);
  result.setColor(QPalette::HighlightedText, onAccent);
  result.setColor(QPalette::Link, accent);
  result.setColor(QPalette::LinkVisited, accent);
  result.setColor(QPalette::ToolTipBase, card);
  result.setColor(QPalette::ToolTipText, text);
  result.setColor(QPalette::Light, cardHovered);
  result.setColor(QPalette::Midlight, cardHovered);
  result.setColor(QPalette::Mid, border);
  result.setColor(QPalette::Dark, border);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    result.setColor(QPalette::Disabled, role, disabled);
  }
  return result;
}

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
