#include "ui/screens/SummaryView.h"

#include <QHBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/controls/Button.h"
#include "ui/controls/Column.h"
#include "ui/controls/Keys.h"
#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/controls/RecordList.h"
#include "ui/look/DisplayText.h"
#include "ui/look/Drawing.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

constexpr int maxSummaryWidth = 620;
constexpr int outcomeSymbolSide = 62;
constexpr int failuresHeight = 220;

QLayout* metrics(const CleanupResult& result) {
  auto* row = new QHBoxLayout;
  const auto add = [row](const char* name, const QString& label, const QString& value) {
    auto* metric = new Metric(name, label, Qt::AlignHCenter);
    metric->setValue(value);
    row->addWidget(metric, 1);
  };
  add("movedBytes", SummaryView::tr("Moved to Trash"), display::size(result.movedBytes()));
  add("movedCount", SummaryView::tr("Items moved"),
      display::count(static_cast<std::int64_t>(result.moved.size())));
  add("failedCount", SummaryView::tr("Failed"),
      display::count(static_cast<std::int64_t>(result.failures.size())));
  return row;
}

// All rows have one height: two lines of message, or as many as the longest one needs.
int messageLines(const std::vector<Record>& records, int width) {
  const QFont font = fontFor(TextStyle::small);
  int tallest = 2 * lineHeight(font);
  for (const Record& record : records)
    tallest = std::max(tallest, drawing::heightOf(record.subtitle, font, width));
  return (tallest + lineHeight(font) - 1) / lineHeight(font);
}

RecordList* failureList(const std::vector<CleanupFailure>& failures) {
  std::vector<Record> records;
  records.reserve(failures.size());
  for (const CleanupFailure& failure : failures) {
    records.push_back({.title = display::text(failure.path),
                       .warning = display::warning(failure.path),
                       .subtitle = enginetext::sentence(failure.message)});
  }
  const int lines =
      messageLines(records, maxSummaryWidth - 2 * drawing::rowEdge - drawing::scrollBarExtent);
  auto* list = new RecordList(SummaryView::tr("Items that were left alone"), std::move(records),
                              {.subtitle = lines});
  list->setObjectName("failures");
  list->setFixedHeight(failuresHeight);
  return list;
}

}  // namespace

SummaryView::SummaryView(AppModel& model, QWidget* parent) : QWidget(parent) {
  setObjectName("summary");
  const CleanupResult result = model.cleanupResult().value_or(CleanupResult{});
  const bool hasFailures = !result.failures.empty();
  auto* outcome =
      new SymbolView(hasFailures ? "exclamationmark.circle.fill" : "checkmark.circle.fill",
                     outcomeSymbolSide, hasFailures ? Tone::usuallySafe : Tone::safe);
  outcome->setObjectName("outcome");

  QVBoxLayout& lines = (new Column(*this, maxSummaryWidth))->lines();
  lines.setSpacing(8);
  lines.addStretch(2);
  lines.addWidget(outcome, 0, Qt::AlignHCenter);
  lines.addSpacing(16);
  auto* title = new Label(enginetext::title(messages::cleanupComplete), TextStyle::largeTitle);
  title->setObjectName("title");
  lines.addWidget(title, 0, Qt::AlignHCenter);
  lines.addSpacing(16);
  lines.addLayout(metrics(result));
  if (hasFailures) {
    lines.addSpacing(16);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(drawing::scrollBarExtent, 0, 0, 0);  // the same room on both sides
    row->addWidget(failureList(result.failures));
    lines.addLayout(row);
  }
  lines.addSpacing(24);
  lines.addLayout(buttons(model));
  lines.addStretch(3);
}

QLayout* SummaryView::buttons(AppModel& model) {
  auto* history = new Button(tr("View History"));
  history->setObjectName("viewHistory");
  connect(history, &Button::clicked, this, [&model] { model.showHistory(); });

  auto* done = new Button(tr("Done"), Button::Look::prominent);
  done->setObjectName("done");
  connect(done, &Button::clicked, this, [&model] { model.returnHome(); });
  keys::setDefaultAction(*this, *done);
  setFocusProxy(done);

  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addStretch();
  row->addWidget(history);
  row->addWidget(done);
  row->addStretch();
  return row;
}

}  // namespace broomtide::ui
