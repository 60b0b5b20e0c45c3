#include "ui/controls/SegmentedControl.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionButton>
#include <utility>

#include "ui/look/Drawing.h"
#include "ui/look/Theme.h"
#include "ui/look/Typography.h"

namespace broomtide::ui {
namespace {

class Segment final : public QPushButton {
 public:
  explicit Segment(const QString& text) : QPushButton(text) {
    setCheckable(true);
    setFont(fontFor(TextStyle::small));
    setFlat(true);
    setFocusPolicy(Qt::TabFocus);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = Theme::of(palette());
    QPainter painter(this);
    if (isChecked())
      drawing::surface(painter, rect(), theme.card, theme.border, drawing::controlRadius - 1);
    if (drawing::showsFocus(option))
      drawing::focusRing(painter, rect(), theme.accent, drawing::controlRadius - 1);
    painter.setPen(isChecked() || underMouse() ? theme.text : theme.secondary);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
  }
};

}  // namespace

SegmentedControl::SegmentedControl(const QString& label, const QStringList& segments,
                                   std::function<void(int)> onChange, QWidget* parent)
    : QWidget(parent) {
  setAccessibleName(label);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout(this);
  constexpr int inset = 2;
  row->setContentsMargins(inset, inset, inset, inset);
  row->setSpacing(0);
  for (const QString& text : segments) {
    auto* segment = new Segment(text);
    segment->setObjectName(text);
    group_.addButton(segment, row->count());
    row->addWidget(segment);
  }
  group_.button(0)->setChecked(true);
  connect(&group_, &QButtonGroup::idToggled, this,
          [onChange = std::move(onChange)](int position, bool isDown) {
            if (isDown) onChange(position);
          });
}

void SegmentedControl::paintEvent(QPaintEvent*) {
  const Theme& theme = Theme::of(palette());
  QPainter painter(this);
  drawing::surface(painter, rect(), theme.border, {}, drawing::controlRadius);
}

}  // namespace broomtide::ui
