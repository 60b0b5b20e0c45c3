#include "ui/controls/Metric.h"

#include <QVBoxLayout>

#include "ui/controls/Label.h"

namespace broomtide::ui {

Metric::Metric(const QString& label, Qt::Alignment alignment, QWidget* parent)
    : QWidget(parent),
      value_(new Label({}, TextStyle::headline)),
      label_(new Label(label, TextStyle::small, Tone::secondary)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(2);
  column->addWidget(value_, 0, alignment);
  column->addWidget(label_, 0, alignment);
}

// Read as one, so that nobody hears a number without its meaning.
void Metric::setValue(const QString& value) {
  value_->setText(value);
  setAccessibleName(QStringLiteral("%1 %2").arg(value, label_->text()));
}

void Metric::reserve(const QString& widest) {
  value_->setMinimumWidth(value_->fontMetrics().horizontalAdvance(widest));
}

QString Metric::value() const { return value_->text(); }

QString Metric::label() const { return label_->text(); }

}  // namespace broomtide::ui
