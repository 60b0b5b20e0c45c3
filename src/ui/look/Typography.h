#pragma once

#include <QFont>

namespace broomtide::ui {

/// How large and heavy a text is. All follow the font that the user has set for the desktop.
enum class TextStyle {
  display,      ///< the name of the application on the start screen
  largeTitle,   ///< the heading of a screen
  secondTitle,  ///< the heading of a panel
  headline,
  body,
  medium,  ///< what a row is about
  small,
  smallBold,
  smallest,
  monospaced,       ///< numbers in columns
  smallMonospaced,  ///< commands
};

/// The font for a style.
QFont fontFor(TextStyle style);

/// The height of a line of text in pixels.
int lineHeight(const QFont& font);

}  // namespace broomtide::ui
