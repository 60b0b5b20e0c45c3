#include "ui/look/Drawing.h"

#include <QPainter>
#include <algorithm>

#include "ui/look/Symbols.h"

namespace broomtide::ui::drawing {

RowLines::RowLines(QPoint topLeft, int width, const RowFonts& fonts, int subtitleCount)
    : title(topLeft, QSize(width, lineHeight(fonts.title))),
      subtitle(title.x(), title.bottom() + 2, width, subtitleCount * lineHeight(fonts.subtitle)),
      note(title.x(), subtitle.bottom() + 2, width, lineHeight(fonts.note)) {}

QRect centred(int x, const QRect& row, int side) {
  return {x, row.y() + (row.height() - side) / 2, side, side};
}

void surface(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& outline,
             int radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(fill.isValid() ? QBrush(fill) : Qt::NoBrush);
  painter.setPen(outline.isValid() ? QPen(outline, 1) : Qt::NoPen);
  constexpr double half = 0.5;  // where a pen of one pixel is sharp
  const QRectF shape =
      outline.isValid() ? QRectF(rect).adjusted(half, half, -half, -half) : QRectF(rect);
  painter.drawRoundedRect(shape, radius, radius);
  painter.restore();
}

void cardSlice(QPainter& painter, const QRect& rect, PlaceInCard place, const QColor& fill,
               const QColor& outline, int separatorFrom) {
  painter.save();
  painter.setClipRect(rect, Qt::IntersectClip);
  const int beyond = 2 * cardRadius;
  const QRect card = rect.adjusted(0, place.isFirst ? 0 : -beyond, 0, place.isLast ? 0 : beyond);
  surface(painter, card, fill, outline, cardRadius);
  if (!place.isLast) {
    painter.setPen(outline);
    painter.drawLine(separatorFrom, rect.bottom(), rect.right() - 1, rect.bottom());
  }
  painter.restore();
}

void line(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
          const QString& text, Qt::TextElideMode elision, Qt::Alignment alignment) {
  painter.setFont(font);
  painter.setPen(colour);
  const QString shown = painter.fontMetrics().elidedText(text, elision, rect.width());
  painter.drawText(rect, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                   shown);
}

int widthOf(const Badge& badge) {
  constexpr int padding = 9;
  return QFontMetrics(badge.font).horizontalAdvance(badge.word) + 2 * padding;
}

void capsule(QPainter& painter, const QRect& rect, const Badge& badge) {
  surface(painter, rect, Theme::faint(badge.colour), {}, rect.height() / 2);
  line(painter, rect, badge.font, badge.colour, badge.word, Qt::ElideRight, Qt::AlignHCenter);
}

void lineWithBadge(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
                   const QString& text, const Badge& badge) {
  if (badge.word.isEmpty()) {
    line(painter, rect, font, colour, text, Qt::ElideMiddle);
    return;
  }
  constexpr int gap = 8;
  const int room = std::max(0, rect.width() - widthOf(badge) - gap);
  QRect place = rect;
  place.setWidth(std::min(room, QFontMetrics(font).horizontalAdvance(text) + 2));
  line(painter, place, font, colour, text, Qt::ElideMiddle);
  capsule(painter, QRect(place.right() + 1 + gap, rect.y(), widthOf(badge), rect.height()), badge);
}

int heightOf(const QString& text, const QFont& font, int width) {
  constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
  return QFontMetrics(font).boundingRect(QRect(0, 0, width, 0), flags, text).height();
}

void paragraph(QPainter& painter, const QRect& rect, const QFont& font, const QColor& colour,
               const QString& text) {
  painter.setFont(font);
  painter.setPen(colour);
  constexpr int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
  const auto fits = [&](const QString& part) {
    return painter.boundingRect(QRect(rect.topLeft(), QSize(rect.width(), 0)), flags, part)
               .height() <= rect.height();
  };
  QString shown = text;
  while (!fits(shown) && shown.size() > 1) {
    shown.chop(shown.size() / 8 + 2);  // with the ellipsis of the last round
    shown += u'…';
  }
  painter.drawText(rect, flags, shown);
}

void focusRing(QPainter& painter, const QRect& rect, const QColor& colour, int radius) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  constexpr double width = 2;
  painter.setPen(QPen(colour, width));
  painter.drawRoundedRect(QRectF(rect).adjusted(1, 1, -1, -1), radius, radius);
  painter.restore();
}

bool showsFocus(const QStyleOption& option) {
  constexpr QStyle::State both = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
  return (option.state & both) == both;
}

void checkBox(QPainter& painter, const QRect& rect, QStyle::State state, const QPalette& palette) {
  const Theme& theme = Theme::of(palette);
  const bool isEnabled = (state & QStyle::State_Enabled) != 0;
  const QColor colour = isEnabled ? theme.accent : theme.disabled;
  constexpr int radius = 4;
  if ((state & QStyle::State_On) != 0) {
    surface(painter, rect, colour, {}, radius);
    symbols::paint(painter, QStringLiteral("checkmark"), theme.onAccent,
                   rect.adjusted(2, 2, -2, -2));
    return;
  }
  const bool isHovered = isEnabled && (state & QStyle::State_MouseOver) != 0;
  surface(painter, rect, theme.card, isHovered ? colour : theme.tertiary, radius);
}

}  // namespace broomtide::ui::drawing
