#include "ui/controls/Column.h"

#include <QHBoxLayout>

#include "ui/look/Drawing.h"

namespace broomtide::ui {

Column::Column(QWidget& place, int widest, Content content)
    : QWidget(&place), lines_(new QVBoxLayout(this)) {
  const int room = content == Content::scrolling ? drawing::scrollBarExtent : 0;
  setMaximumWidth(widest + room);
  lines_->setContentsMargins({});
  auto* row = new QHBoxLayout(&place);
  constexpr int edge = 24;
  row->setContentsMargins(edge, 0, edge - room, 0);
  row->addStretch(1);
  constexpr int first = 1000;  // the column grows before the space beside it does
  row->addWidget(this, first);
  row->addStretch(1);
}

void Column::addClearOfScrollBar(QWidget* line) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(0, 0, drawing::scrollBarExtent, 0);
  row->addWidget(line);
  lines_->addLayout(row);
}

}  // namespace broomtide::ui
