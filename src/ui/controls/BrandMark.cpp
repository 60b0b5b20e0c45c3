#include "ui/controls/BrandMark.h"

#include <QPainter>

#include "ui/look/Symbols.h"

namespace broomtide::ui {

BrandMark::BrandMark(int side, QWidget* parent) : QWidget(parent) {
  setObjectName("BrandMark");
  setFixedSize(side, side);
}

void BrandMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  symbols::brandMark().paint(&painter, rect());
}

}  // namespace broomtide::ui
