#include "ui/results/ResultsBars.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/controls/Button.h"
#include "ui/controls/Keys.h"
#include "ui/controls/Label.h"
#include "ui/look/DisplayText.h"
#include "ui/look/Symbols.h"
#include "ui/look/Theme.h"

namespace broomtide::ui {
namespace {

constexpr int filterWidth = 190;
constexpr int minFilterWidth = 120;
constexpr int maxTitleWidth = 350;  // fits into the smallest window
constexpr int narrowWidth = 860;    // below it, metrics and controls wrap

// Shrinks before the widgets beside it do.
class FilterField final : public QLineEdit {
 public:
  FilterField() { setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed); }

  QSize sizeHint() const override { return {filterWidth, QLineEdit::sizeHint().height()}; }
  QSize minimumSizeHint() const override { return {minFilterWidth, sizeHint().height()}; }
};

std::int64_t sizeOf(const auto& list) { return static_cast<std::int64_t>(list.size()); }

}  // namespace

ResultsHeader::ResultsHeader(AppModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      filter_(new FilterField),
      filterIcon_(filter_->addAction(QIcon(), QLineEdit::LeadingPosition)),
      found_(new Metric("found", tr("Found"), Qt::AlignLeft)),
      selected_(new Metric("selected", tr("Selected"), Qt::AlignLeft)),
      scanned_(new Metric("scanned", tr("Scanned"), Qt::AlignLeft)),
      projects_(new Metric("projects", tr("Projects"), Qt::AlignLeft)),
      matches_(new Metric("matches", tr("Matches"), Qt::AlignLeft)),
      secondLine_(new QBoxLayout(QBoxLayout::LeftToRight)) {
  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins({});
  lines->setSpacing(16);
  lines->addLayout(titleLine());
  secondLine_->setSpacing(12);
  secondLine_->addLayout(metrics(), 1);
  secondLine_->addLayout(controls());
  lines->addLayout(secondLine_);
  applyTheme();
}

QLayout* ResultsHeader::titleLine() {
  auto* home = new Button(tr("Home"), Button::Look::bordered, "house");
  home->setObjectName("home");
  connect(home, &Button::clicked, this, [&model = model_] { model.returnHome(); });

  filter_->setObjectName("filter");
  filter_->setPlaceholderText(tr("Filter"));
  filter_->setAccessibleName(tr("Filter"));
  filter_->setClearButtonEnabled(true);
  for (auto* button : filter_->findChildren<QToolButton*>()) {
    const bool isIcon = button->defaultAction() == filterIcon_;
    button->setAccessibleName(isIcon ? tr("Filter") : tr("Clear the filter"));
  }
  connect(filter_, &QLineEdit::textChanged, this, &ResultsHeader::filterChanged);

  auto* sort = new QComboBox;
  sort->setObjectName("sort");
  sort->addItem(tr("Largest"), static_cast<int>(SortOrder::size));
  sort->addItem(tr("Name"), static_cast<int>(SortOrder::name));
  sort->addItem(tr("Oldest"), static_cast<int>(SortOrder::date));
  connect(sort, &QComboBox::currentIndexChanged, this,
          [this, sort] { emit sortChosen(static_cast<SortOrder>(sort->currentData().toInt())); });
  keys::chooseOnReturn(*sort->view());
  auto* label = new Label(tr("Sort"), TextStyle::body, Tone::secondary);
  label->setBuddy(sort);
  sort->setAccessibleName(tr("Sort"));

  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(home, 0, Qt::AlignTop);
  row->addSpacing(8);
  row->addLayout(titles(), 1);
  row->addSpacing(8);
  row->addWidget(filter_, 0, Qt::AlignTop);
  row->addSpacing(8);
  row->addWidget(label, 0, Qt::AlignTop);
  row->addWidget(sort, 0, Qt::AlignTop);
  label->setFixedHeight(sort->sizeHint().height());
  return row;
}

QLayout* ResultsHeader::titles() {
  auto* title = new ElidedLabel(tr("Review cleanup items"), TextStyle::largeTitle);
  title->setObjectName("title");
  title->setMinimumWidth(std::min(title->sizeHint().width(), maxTitleWidth));
  auto* path = new ElidedLabel(model_.rootURL() ? display::text(*model_.rootURL()) : QString(),
                               TextStyle::body, Tone::secondary);
  path->setObjectName("root");
  auto* column = new QVBoxLayout;
  column->setSpacing(2);
  column->addWidget(title);
  column->addWidget(path);
  return column;
}

QLayout* ResultsHeader::metrics() {
  auto* row = new QHBoxLayout;
  row->setSpacing(24);
  constexpr std::int64_t wide = 888'800'000;
  selected_->reserve(display::size(wide));
  for (Metric* metric : {found_, selected_, scanned_, projects_, matches_}) row->addWidget(metric);
  row->addStretch();
  return row;
}

QLayout* ResultsHeader::controls() {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  if (!model_.projectReclaimSummaries().empty()) {
    auto* tabs = new SegmentedControl(tr("View"), {tr("Cleanup Items"), tr("By Project")},
                                      [this](int tab) { emit projectsChosen(tab == 1); });
    tabs->setObjectName("tabs");
    row->addWidget(tabs);
    row->addSpacing(8);
  }
  row->addStretch();
  auto* safe = new Button(tr("Select Safe"));
  safe->setObjectName("selectSafe");
  connect(safe, &Button::clicked, this, [&model = model_] { model.selectSafeItems(); });
  auto* none = new Button(tr("Unselect All"));
  none->setObjectName("unselectAll");
  connect(none, &Button::clicked, this, [&model = model_] { model.unselectAll(); });
  row->addWidget(safe);
  row->addWidget(none);
  return row;
}

void ResultsHeader::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyTheme();
}

void ResultsHeader::applyTheme() {
  filterIcon_->setIcon(symbols::icon("magnifyingglass", Theme::of(palette()).tertiary));
}

void ResultsHeader::resizeEvent(QResizeEvent*) {
  secondLine_->setDirection(width() < narrowWidth ? QBoxLayout::TopToBottom
                                                  : QBoxLayout::LeftToRight);
}

void ResultsHeader::refresh(const Selection::Totals& totals) {
  found_->setValue(display::size(totals.totalBytes));
  selected_->setValue(display::size(totals.selectedBytes));
  scanned_->setValue(display::count(model_.progress().entriesScanned));
  projects_->setValue(display::count(sizeOf(model_.projectContexts())));
  matches_->setValue(display::count(sizeOf(model_.candidates())));
}

ResultsFooter::ResultsFooter(AppModel& model, QWidget* parent)
    : QWidget(parent),
      selection_(new Label({}, TextStyle::body, Tone::secondary)),
      move_(new Button(tr("Move Selected to Trash"), Button::Look::prominent)) {
  auto* rescan = new Button(tr("Rescan"));
  rescan->setObjectName("rescan");
  connect(rescan, &Button::clicked, this, [&model] {
    if (model.rootURL()) model.beginScan(*model.rootURL(), model.scanMode(), false);
  });
  selection_->setObjectName("selection");
  selection_->setWordWrap(true);
  move_->setObjectName("moveSelected");
  connect(move_, &Button::clicked, this, [&model] { model.showConfirmation(); });

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(16);
  row->addWidget(rescan);
  row->addWidget(selection_, 1);
  row->addWidget(move_);
}

void ResultsFooter::refresh(const Selection::Totals& totals, std::size_t hiddenCount) {
  const QString hidden = hiddenCount > 0 ? tr("%n of them hidden by the filter", nullptr,
                                              static_cast<int>(hiddenCount))
                                         : QString();
  selection_->setText(
      display::joined({tr("%n selected", nullptr, static_cast<int>(totals.selectedCount)),
                       display::size(totals.selectedBytes), hidden}));
  move_->setEnabled(totals.selectedCount > 0);
}

}  // namespace broomtide::ui
