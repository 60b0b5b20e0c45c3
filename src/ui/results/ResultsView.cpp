#include "ui/results/ResultsView.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QStackedWidget>

#include "ui/controls/Button.h"
#include "ui/controls/Column.h"
#include "ui/controls/Divider.h"
#include "ui/controls/EmptyState.h"
#include "ui/look/DisplayText.h"
#include "ui/results/ProjectList.h"
#include "ui/results/ResultsFooter.h"
#include "ui/results/ResultsHeader.h"
#include "ui/results/ResultsList.h"
#include "ui/results/ResultsModel.h"

namespace broomtide::ui {
namespace {

constexpr int widest = 1200;

}  // namespace

ResultsView::ResultsView(AppModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      header_(new ResultsHeader(model)),
      body_(new QStackedWidget),
      footer_(new ResultsFooter(model)),
      frame_([this] { refresh(); }) {
  setObjectName("results");
  if (model.candidates().empty()) {
    body_->addWidget(nothingFound());
    setFocusProxy(header_->findChild<QWidget*>("home"));
  } else {
    addLists();
    setFocusProxy(list_);
  }
  auto* column = new Column(*this, widest, Column::Content::scrolling);
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

  setDefaultAction(*this, footer_->move());
  header_->filter().setVisible(list_ != nullptr);
  header_->filter().installEventFilter(this);
  connect(header_, &ResultsHeader::projectsChosen, this, &ResultsView::showProjects);
  observation_ = model.observe([this](AppModel::Field) { frame_.request(); });
  refresh();
}

QWidget* ResultsView::nothingFound() const {
  const QString description =
      model_.scanMode() == ScanMode::caches
          ? tr("The known developer cache locations under this folder are already clean.")
          : tr("Broomtide scanned %1 items but did not find a supported disposable artifact in "
               "this folder.",
               nullptr, display::quantity(model_.progress().entriesScanned))
                .arg(display::count(model_.progress().entriesScanned));
  auto* empty = new EmptyState("checkmark.circle", tr("Nothing to clean here"), description);
  empty->setObjectName("empty");
  return empty;
}

void ResultsView::addLists() {
  rows_ = new ResultsModel(model_, this);
  list_ = new ResultsList(model_, *rows_);
  body_->addWidget(list_);
  noMatch_ = new EmptyState("magnifyingglass", tr("No matching items"),
                            tr("Nothing that was found matches the filter."));
  noMatch_->setObjectName("noMatch");
  body_->addWidget(noMatch_);
  connect(header_, &ResultsHeader::sortChosen, rows_, &ResultsModel::setSortOrder);
  connect(header_, &ResultsHeader::filterChanged, this, &ResultsView::filter);
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
    if (areProjectsShown_) return;
    header_->filter().setFocus(Qt::ShortcutFocusReason);
    header_->filter().selectAll();
  });
}

void ResultsView::filter(const QString& text) {
  rows_->setFilter(text);
  refresh();
}

void ResultsView::showProjects(bool areShown) {
  areProjectsShown_ = areShown;
  if (areShown && projects_ == nullptr) {
    projects_ = new ProjectList(model_);
    body_->addWidget(projects_);
  }
  header_->filter().setEnabled(!areShown);
  refresh();
}

void ResultsView::refresh() {
  const Selection::Totals totals = model_.totals();
  header_->refresh(totals);
  footer_->refresh(totals, rows_ != nullptr ? rows_->hiddenSelectedCount(totals.selectedCount) : 0);
  if (rows_ == nullptr) return;
  QWidget* items = rows_->rowCount() > 0 ? static_cast<QWidget*>(list_) : noMatch_;
  body_->setCurrentWidget(areProjectsShown_ ? projects_ : items);
}

// From the filter, Return and Down lead to the list instead of on to the confirmation, and Escape
// takes the filter back.
bool ResultsView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress)
    return QWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool leads = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down;
  if (!leads && key != Qt::Key_Escape) return QWidget::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    if (key == Qt::Key_Escape) header_->filter().clear();
    list_->setFocus(Qt::ShortcutFocusReason);
  }
  event->accept();
  return true;
}

}  // namespace broomtide::ui
