#include "ui/screens/HistoryView.h"

#include <QHBoxLayout>
#include <utility>

#include "ui/controls/Button.h"
#include "ui/controls/Column.h"
#include "ui/controls/Keys.h"
#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/controls/RecordList.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

constexpr int maxHistoryWidth = 960;

RecordList* entryList(const std::vector<CleanupHistoryEntry>& history) {
  std::vector<Record> records;
  records.reserve(history.size());
  for (const CleanupHistoryEntry& entry : history) {
    records.push_back(
        {.title = display::text(entry.rootPath),
         .warning = display::warning(entry.rootPath),
         .subtitle = display::dateAndTime(entry.date),
         .trailing = HistoryView::tr("%n item(s)", nullptr, display::quantity(entry.movedCount)),
         .amount = display::size(entry.movedBytes)});
  }
  auto* list =
      new RecordList(HistoryView::tr("Cleanup History"), std::move(records), {.hasAmount = true});
  list->setObjectName("entries");
  return list;
}

}  // namespace

HistoryView::HistoryView(AppModel& model, QWidget* parent) : QWidget(parent) {
  setObjectName("history");
  auto* column = new Column(*this, maxHistoryWidth, Column::Content::scrolling);
  QVBoxLayout& lines = column->lines();
  lines.setSpacing(12);
  lines.addSpacing(12);
  lines.addLayout(header(model));
  column->addClearOfScrollBar(new Divider);
  if (model.history().empty()) {
    auto* empty = new EmptyState("clock", enginetext::title(messages::noHistory),
                                 enginetext::title(messages::historyAppears));
    empty->setObjectName("empty");
    lines.addWidget(empty, 1);
  } else {
    RecordList* list = entryList(model.history());
    setFocusProxy(list);
    lines.addWidget(list, 1);
  }
  lines.addSpacing(8);
}

QLayout* HistoryView::header(AppModel& model) {
  auto* back = new Button(tr("Back"), Button::Look::bordered, "chevron.left");
  back->setObjectName("back");
  connect(back, &Button::clicked, this, [&model] { model.backFromHistory(); });
  keys::setCancelAction(*this, *back);
  setFocusProxy(back);

  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  row->addWidget(back);
  row->addWidget(new Label(tr("Cleanup History"), TextStyle::largeTitle));
  row->addStretch();
  return row;
}

}  // namespace broomtide::ui
