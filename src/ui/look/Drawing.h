#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QStyleOption>

#include "ui/look/Theme.h"

QT_FORWARD_DECLARE_CLASS(QPainter)

/// Shapes that several controls are made of.
namespace broomtide::ui::drawing {

/// Corners of cards and of controls, in pixels.
inline constexpr int cardRadius = 12;
inline constexpr int controlRadius = 7;

/// How wide scroll bars are, in pixels.
inline constexpr int scrollBarExtent = 12;

/// Measures that the rows of all lists share, in pixels.
inline constexpr int rowEdge = 16;     ///< left and right of what a row shows
inline constexpr int rowGap = 12;      ///< between what stands beside each other
inline constexpr int rowPadding = 10;  ///< above and below the lines
inline constexpr int rowSymbolSide = 22;

/// The side of a tick box, in pixels.
inline constexpr int checkBoxSide = 18;

/// Fonts that the rows of all lists share.
struct RowFonts {
  QFont title = fontFor(TextStyle::medium);
  QFont subtitle = fontFor(TextStyle::small);
  QFont note = fontFor(TextStyle::smallest);
  QFont amount = fontFor(TextStyle::monospaced);
};

/// The lines of a row, one below the other.
struct RowLines {
  QRect title, subtitle, note;

  /// `subtitleCount` is how many lines of text the subtitle takes.
  RowLines(QPoint topLeft, int width, const RowFonts& fonts, int subtitleCount = 1);
};

/// A square of this side in the middle of the height of a row.
QRect centred(int x, const QRect& row, int side);

/// A rounded surface with an outline of one pixel inside its edge. An invalid colour leaves that
/// part out.
void surface(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& outline,
             int radius);

/// Where a row stands in the card that it is a part of.
struct PlaceInCard {
  bool isFirst = true;
  bool isLast = true;
};

/// The part of a card that lies behind one row, with a line below it that begins at `separatorFrom`
/// unless it is the last one.
void cardSlice(QPainter& painter, const QRect& rect, PlaceInCard place, const QColor& fill,
               const QColor& outline, int separatorFrom);

/// A text on one line, shortened where `elision` says if there is no room for all of it.
void line(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
          const QString& text, Qt::TextElideMode elision, Qt::Alignment alignment = Qt::AlignLeft);

/// A word in a capsule.
struct Badge {
  QString word;
  QFont font;
  QColor colour;  ///< of the word; the capsule is a faint shade of it
};

/// The width that a mark takes.
int widthOf(const Badge& badge);

/// A mark that fills a rectangle.
void capsule(QPainter& painter, const QRect& rect, const Badge& badge);

/// A text on one line, shortened in its middle if need be, and the mark right after it unless its
/// word is empty.
void lineWithBadge(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
                   const QString& text, const Badge& badge);

/// The height in pixels that a text takes when its lines are this wide.
int heightOf(const QString& text, const QFont& font, int width);

/// A text on as many lines as there is room for, shortened at its end.
void paragraph(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
               const QString& text);

/// A ring just inside the edge, around what has the focus.
void focusRing(QPainter& painter, const QRect& rect, const QColor& colour, int radius);

/// Whether the focus of what is drawn is to be seen: it was moved there with the keyboard.
bool showsFocus(const QStyleOption& option);

/// A tick box. `state` tells whether it is ticked, enabled and under the pointer.
void checkBox(QPainter& painter, const QRect& rect, QStyle::State state, const QPalette& palette);

}  // namespace broomtide::ui::drawing
