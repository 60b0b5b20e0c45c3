#include "ui/results/ResultsView.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QShortcut>
#include <QStackedWidget>
#include <utility>

#include "ui/controls/Button.h"
#include "ui/controls/Column.h"
#include "ui/controls/Keys.h"
#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/controls/RecordList.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"
#include "ui/results/ResultsBars.h"
#include "ui/results/ResultsList.h"
#include "ui/results/ResultsModel.h"

namespace broomtide::ui {
namespace {

constexpr int maxWidth = 1200;

class ProjectList {
  Q_DECLARE_TR_FUNCTIONS(broomtide::ui::ProjectList)
};

QString kindsOf(const ProjectReclaimSummary& summary) {
  QStringList titles;
  for (const ProjectKind kind : summary.kinds) {
    titles << enginetext::title(title(kind));
  }
  titles.sort();
  return titles.join(QStringLiteral(", "));
}

Record recordOf(const ProjectReclaimSummary& summary, std::int64_t largest) {
  const QString newest = display::date(summary.newestArtifactDate, ProjectList::tr("unknown"));
  return {
      .symbol = "shippingbox.fill",
      .title = display::name(summary.root),
      .warning = display::warning(summary.root),
      .subtitle = display::text(summary.root),
      .note = display::joined(
          {kindsOf(summary), ProjectList::tr("newest disposable artifact %1").arg(newest)}),
      .trailing = ProjectList::tr("%n items", nullptr, static_cast<int>(summary.candidateCount)),
      .amount = display::size(summary.reclaimableBytes),
      .share = largest > 0
                   ? static_cast<double>(summary.reclaimableBytes) / static_cast<double>(largest)
                   : 0};
}

QWidget* projectList(const AppModel& model) {
  const std::vector<ProjectReclaimSummary> summaries = model.projectReclaimSummaries();
  std::vector<Record> records;
  records.reserve(summaries.size());
  for (const ProjectReclaimSummary& summary : summaries)
    records.push_back(recordOf(summary, summaries.front().reclaimableBytes));

  auto* heading =
      new Label(ProjectList::tr("Reclaimable by detected project"), TextStyle::headline);
  heading->setObjectName("projectsHeading");
  auto* list =
      new RecordList(heading->text(), std::move(records), {.hasNote = true, .hasAmount = true});
  list->setObjectName("projectList");

  auto* result = new QWidget;
  result->setFocusProxy(list);
  auto* lines = new QVBoxLayout(result);
  lines->setContentsMargins(0, 14, 0, 0);
  lines->setSpacing(10);
  lines->addWidget(heading);
  lines->addWidget(list, 1);
  return result;
}

}  // namespace

ResultsView::ResultsView(AppModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      header_(new ResultsHeader(model)),
      body_(new QStackedWidget),
      rows_(new ResultsModel(model, this)),
      list_(new ResultsList(model, *rows_)),
      empty_(model.candidates().empty() ? nothingFound() : nothingMatches()),
      footer_(new ResultsFooter(model)),
      frame_([this] { refresh(); }) {
  setObjectName("results");
  const bool isNothingFound = model.candidates().empty();
  setFocusProxy(isNothingFound ? header_->findChild<QWidget*>("home") : list_);
  header_->filter().setHidden(isNothingFound);
  arrange();
  keys::setDefaultAction(*this, footer_->move());
  keys::leadToList(header_->filter(), *list_);
  connect(header_, &ResultsHeader::sortChosen, rows_, &ResultsModel::setSortOrder);
  connect(header_, &ResultsHeader::filterChanged, this, &ResultsView::filter);
  connect(header_, &ResultsHeader::projectsChosen, this, &ResultsView::showProjects);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    if (header_->filter().isHidden()) return;
    header_->filter().setFocus(Qt::ShortcutFocusReason);
    header_->filter().selectAll();
  });
  observation_ = model.observe([this](AppModel::Field) { frame_.request(); });
  refresh();
}

void ResultsView::arrange() {
  auto* items = new QWidget;
  auto* parts = new QVBoxLayout(items);
  parts->setContentsMargins({});
  parts->addWidget(empty_, 1);
  parts->addWidget(list_, 1);
  body_->addWidget(items);
  auto* column = new Column(*this, maxWidth, Column::Content::scrolling);
  QVBoxLayout& lines = column->lines();
  lines.setSpacing(0);
  lines.addSpacing(12);
  column->addClearOfScrollBar(header_);
  lines.addSpacing(12);
  column->addClearOfScrollBar(new Divider);
  lines.addWidget(body_, 1);
  column->addClearOfScrollBar(new Divider);
  lines.addSpacing(12);
  column->addClearOfScrollBar(footer_);
  lines.addSpacing(12);
}

QWidget* ResultsView::nothingFound() const {
  const bool isOfCaches = model_.scanMode() == ScanMode::caches;
  const auto entries = static_cast<std::size_t>(model_.progress().entriesScanned);
  const Message why{.pattern = isOfCaches ? messages::cachesClean : messages::nothingSupported,
                    .values = {countValue(entries)}};
  auto* empty = new EmptyState("checkmark.circle", enginetext::title(messages::nothingFound),
                               enginetext::sentence(why));
  empty->setObjectName("empty");
  return empty;
}

QWidget* ResultsView::nothingMatches() {
  auto* result = new EmptyState("magnifyingglass", tr("No matching items"),
                                tr("Nothing that was found matches the filter."));
  result->setObjectName("noMatch");
  return result;
}

void ResultsView::filter(const QString& text) {
  rows_->setFilter(text);
  refresh();
}

void ResultsView::showProjects(bool areShown) {
  if (areShown && body_->count() == 1) body_->addWidget(projectList(model_));
  body_->setCurrentIndex(areShown ? 1 : 0);
  header_->filter().setEnabled(!areShown);
}

// Without candidates there may still be issues, which the list shows below the empty state.
void ResultsView::refresh() {
  const Selection::Totals totals = model_.totals();
  header_->refresh(totals);
  footer_->refresh(totals, rows_->hiddenSelectedCount(totals.selectedCount));
  empty_->setHidden(rows_->showsCandidates());
  list_->setVisible(rows_->rowCount() > 0);
}

}  // namespace broomtide::ui
