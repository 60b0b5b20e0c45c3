#include "ui/controls/Button.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <utility>

#include "ui/controls/Keys.h"
#include "ui/look/Drawing.h"
#include "ui/look/Symbols.h"
#include "ui/look/Theme.h"

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

Button::Button(const QString& text, Look look, QString symbol, QWidget* parent)
    : QPushButton(text, parent), look_(look), symbol_(std::move(symbol)) {
  setDefault(look == Look::prominent);
  setAutoDefault(false);  // or the default look would follow the focus
  setFlat(look == Look::plain);
  setFocusPolicy(Qt::TabFocus);  // Return stays the default action after a click
  setFont(fontFor(look == Look::prominent ? TextStyle::medium : TextStyle::body));
  applyTheme();
}

void Button::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) applyTheme();
}

void Button::keyPressEvent(QKeyEvent* event) {
  if (!keys::clickOnReturn(*this, *event)) QPushButton::keyPressEvent(event);
}

void Button::applyTheme() {
  const Theme& theme = Theme::of(palette());
  const QColor colour = look_ == Look::plain ? theme.secondary : theme.text;
  if (look_ == Look::plain && palette().color(QPalette::Active, QPalette::ButtonText) != colour) {
    QPalette changed;
    changed.setColor(QPalette::ButtonText, colour);
    setPalette(changed);
  }
  if (!symbol_.isEmpty()) setIcon(symbols::icon(symbol_, colour));
}

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
          [onChange = std::move(onChange)](int index, bool isChecked) {
            if (isChecked) onChange(index);
          });
}

void SegmentedControl::paintEvent(QPaintEvent*) {
  const Theme& theme = Theme::of(palette());
  QPainter painter(this);
  drawing::surface(painter, rect(), theme.border, {}, drawing::controlRadius);
}

}  // namespace broomtide::ui
