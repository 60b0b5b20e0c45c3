#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <QStyleOption>

#include "ui/look/Theme.h"

QT_FORWARD_DECLARE_CLASS(QPainter)

/// Painting and metrics that the style, the delegates and the controls share. Lengths are in
/// device-independent pixels.
namespace broomtide::ui::drawing {

/// Corner radii of cards and of controls.
inline constexpr int cardRadius = 12;
inline constexpr int controlRadius = 7;

/// The width of a vertical scroll bar, the height of a horizontal one.
inline constexpr int scrollBarExtent = 12;

/// Metrics of the rows of all lists.
inline constexpr int rowEdge = 16;     ///< horizontal padding
inline constexpr int rowGap = 12;      ///< horizontal spacing
inline constexpr int rowPadding = 10;  ///< vertical padding
inline constexpr int rowSymbolSide = 22;

/// The side of a check box.
inline constexpr int checkBoxSide = 18;

/// Fonts that the rows of all lists share.
struct RowFonts {
  QFont title = fontFor(TextStyle::medium);
  QFont subtitle = fontFor(TextStyle::small);
  QFont note = fontFor(TextStyle::smallest);
  QFont amount = fontFor(TextStyle::monospaced);
};

/// The rectangles of the lines of text of a row.
struct RowLines {
  QRect title, subtitle, note;

  /// The subtitle is as high as `subtitleCount` lines.
  RowLines(QPoint topLeft, int width, const RowFonts& fonts, int subtitleCount = 1);
};

/// A square with this side and left edge, vertically centred in a row.
QRect centred(int x, const QRect& row, int side);

/// A rounded surface with an outline of one pixel inside its edge. An invalid colour leaves that
/// part out.
void surface(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& outline,
             int radius);

/// The position of a row in its card.
struct PlaceInCard {
  bool isFirst = true;
  bool isLast = true;
};

/// The slice of a card behind one row, with a separator at its bottom from x = `separatorFrom` on
/// unless it is the last one.
void cardSlice(QPainter& painter, const QRect& rect, PlaceInCard place, const QColor& fill,
               const QColor& outline, int separatorFrom);

/// A text on one line, vertically centred, and elided where `elision` says.
void line(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
          const QString& text, Qt::TextElideMode elision, Qt::Alignment alignment = Qt::AlignLeft);

/// A word on a capsule.
struct Badge {
  QString word;
  QFont font;
  QColor colour;  ///< of the word; the capsule is a faint shade of it
};

/// The width of a badge with its padding.
int widthOf(const Badge& badge);

/// A badge whose capsule fills a rectangle.
void capsule(QPainter& painter, const QRect& rect, const Badge& badge);

/// A text on one line, elided in the middle, and right after it a badge, unless its word is empty.
void lineWithBadge(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
                   const QString& text, const Badge& badge);

/// The height of a text that is wrapped at this width.
int heightOf(const QString& text, const QFont& font, int width);

/// A text that is wrapped at words, and elided at its end.
void paragraph(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
               const QString& text);

/// A focus ring just inside the edge.
void focusRing(QPainter& painter, const QRect& rect, const QColor& colour, int radius);

/// Whether what has the focus shows a ring: only once the keyboard has moved the focus.
bool showsFocus(const QStyleOption& option);

/// A check box. Of `state`, `State_On`, `State_Enabled` and `State_MouseOver` count.
void checkBox(QPainter& painter, const QRect& rect, QStyle::State state, const QPalette& palette);

}  // namespace broomtide::ui::drawing
