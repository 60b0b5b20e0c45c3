#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "core/Enumerations.h"

namespace broomtide::ui {

/// The role of a text or an icon, which decides its colour.
enum class Tone { primary, secondary, tertiary, accent, safe, usuallySafe, reviewFirst };

/// The tone in which a safety level is shown.
Tone toneOf(SafetyLevel level);

/// The colours of the window. Every tone is readable on the window and on a card.
struct Theme {
  QColor window;       ///< behind everything
  QColor card;         ///< raised surfaces and lists
  QColor cardHovered;  ///< a card or row under the pointer
  QColor border;       ///< outlines and separators
  QColor text;
  QColor secondary;
  QColor tertiary;
  QColor accent;    ///< of actions and the focus
  QColor onAccent;  ///< text on a surface in the accent colour
  QColor safe;
  QColor usuallySafe;
  QColor reviewFirst;
  QColor disabled;  ///< of disabled controls

  static const Theme& light();
  static const Theme& dark();

  /// The light or the dark theme, whichever the palette is closer to.
  static const Theme& of(const QPalette& palette);

  QColor colour(Tone tone) const;

  /// The same colour at 12 % opacity, for a surface behind something in `colour`.
  static QColor faint(QColor colour);

  /// These colours in the roles of a palette, for Qt's own drawing.
  QPalette palette() const;
};

/// Size and weight of a text. All scale with the font that the user has set for the desktop.
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

/// The height of a line in pixels.
int lineHeight(const QFont& font);

}  // namespace broomtide::ui
