#include "ui/controls/EmptyState.h"

#include <QVBoxLayout>

#include "ui/controls/Label.h"
#include "ui/controls/SymbolView.h"

namespace broomtide::ui {

EmptyState::EmptyState(const QString& symbol, const QString& title, const QString& description,
                       QWidget* parent)
    : QWidget(parent) {
  constexpr int symbolSide = 56;
  constexpr int widest = 460;
  auto* heading = new Label(title, TextStyle::secondTitle);
  heading->setObjectName("emptyTitle");
  auto* text = new Label(description, TextStyle::body, Tone::secondary);
  text->setObjectName("emptyDescription");
  text->setWordWrap(true);
  text->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  text->setFixedWidth(widest);
  text->setMinimumHeight(text->heightForWidth(widest));  // a stretching layout gives it one line

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
