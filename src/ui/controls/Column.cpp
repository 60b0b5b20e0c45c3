#include "ui/controls/Column.h"

#include <QHBoxLayout>

#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/look/Drawing.h"

namespace broomtide::ui {

Column::Column(QWidget& parent, int maxWidth, Content content)
    : QWidget(&parent), lines_(new QVBoxLayout(this)) {
  const int room = content == Content::scrolling ? drawing::scrollBarExtent : 0;
  setMaximumWidth(maxWidth + room);
  lines_->setContentsMargins({});
  auto* row = new QHBoxLayout(&parent);
  constexpr int edge = 24;
  row->setContentsMargins(edge, 0, edge - room, 0);
  row->addStretch(1);
  constexpr int stretch = 1000;  // the column grows before the space on both sides
  row->addWidget(this, stretch);
  row->addStretch(1);
}

void Column::addClearOfScrollBar(QWidget* line) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(0, 0, drawing::scrollBarExtent, 0);
  row->addWidget(line);
  lines_->addLayout(row);
}

EmptyState::EmptyState(const QString& symbol, const QString& title, const QString& description,
                       QWidget* parent)
    : QWidget(parent) {
  constexpr int symbolSide = 56;
  constexpr int textWidth = 460;
  auto* heading = new Label(title, TextStyle::secondTitle);
  heading->setObjectName("emptyTitle");
  auto* text = new Label(description, TextStyle::body, Tone::secondary);
  text->setObjectName("emptyDescription");
  text->setWordWrap(true);
  text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  text->setFixedWidth(textWidth);
  text->setMinimumHeight(text->heightForWidth(textWidth));  // or the stretches leave it one line

  auto* column = new QVBoxLayout(this);
  column->setSpacing(8);
  column->addStretch(2);
  column->addWidget(new SymbolView(symbol, symbolSide, Tone::tertiary), 0, Qt::AlignHCenter);
  column->addSpacing(8);
  column->addWidget(heading, 0, Qt::AlignHCenter);
  column->addWidget(text, 0, Qt::AlignHCenter);
  column->addStretch(3);
}

}  // namespace broomtide::ui
