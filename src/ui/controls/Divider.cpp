#include "ui/controls/Divider.h"

#include <QPainter>

#include "ui/look/Theme.h"

namespace broomtide::ui {

Divider::Divider(QWidget* parent) : QWidget(parent) { setFixedHeight(1); }

void Divider::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Theme::of(palette()).border);
}

}  // namespace broomtide::ui
