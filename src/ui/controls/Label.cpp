#include "ui/controls/Label.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

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
  constexpr int minWidth = 80;
  return {minWidth, Label::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  const QRect area = contentsRect();
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, area.width());
  painter.drawText(area, static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

Metric::Metric(const char* name, const QString& label, Qt::Alignment alignment, QWidget* parent)
    : QWidget(parent),
      value_(new Label({}, TextStyle::headline)),
      label_(new Label(label, TextStyle::small, Tone::secondary)) {
  setObjectName(name);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(2);
  column->addWidget(value_, 0, alignment);
  column->addWidget(label_, 0, alignment);
}

// A screen reader would else read a number without its meaning.
void Metric::setValue(const QString& value) {
  value_->setText(value);
  setAccessibleName(QStringLiteral("%1 %2").arg(value, label_->text()));
}

void Metric::reserve(const QString& longest) {
  value_->setMinimumWidth(value_->fontMetrics().horizontalAdvance(longest));
}

}  // namespace broomtide::ui
