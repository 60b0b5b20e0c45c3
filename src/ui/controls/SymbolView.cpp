#include "ui/controls/SymbolView.h"

#include <QPainter>
#include <utility>

#include "ui/look/Symbols.h"

namespace broomtide::ui {

SymbolView::SymbolView(QString name, int side, Tone tone, QWidget* parent)
    : QWidget(parent), name_(std::move(name)), side_(side), tone_(tone) {
  setFixedSize(side, side);
}

void SymbolView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  symbols::paint(painter, name_, Theme::of(palette()).colour(tone_), rect());
}

}  // namespace broomtide::ui
