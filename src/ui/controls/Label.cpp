#include "ui/controls/Label.h"

#include <QEvent>
#include <QPainter>

namespace broomtide::ui {

Label::Label(const QString& text, TextStyle style, Tone tone, QWidget* parent)
    : QLabel(parent), tone_(tone) {
  setTextFormat(Qt::PlainText);
  setFont(fontFor(style));
  setText(text);
  applyTone();
}

void Label::makeSelectable() {
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setCursor(Qt::IBeamCursor);
}

void Label::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) applyTone();
}

void Label::applyTone() {
  const QColor colour = Theme::of(palette()).colour(tone_);
  if (palette().color(QPalette::Active, QPalette::WindowText) == colour) return;
  QPalette changed;
  changed.setColor(QPalette::WindowText, colour);
  setPalette(changed);
}

QSize ElidedLabel::minimumSizeHint() const {
  constexpr int least = 80;
  return {least, Label::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QRect area = contentsRect();
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, area.width());
  painter.drawText(area, static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

}  // namespace broomtide::ui
