#include "ui/results/ResultsList.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include "ui/controls/RecordList.h"
#include "ui/look/DisplayText.h"
#include "ui/results/CandidateDetails.h"
#include "ui/results/ResultsDelegate.h"

namespace broomtide::ui {

ResultsList::ResultsList(AppModel& appModel, ResultsModel& rows, QWidget* parent)
    : QTableView(parent), appModel_(appModel), rows_(rows), delegate_(new ResultsDelegate(this)) {
  setObjectName("candidates");
  setAccessibleName(tr("Cleanup Items"));
  setUpCards(*this);  // the check boxes are the selection
  setShowGrid(false);
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  horizontalHeader()->hide();
  horizontalHeader()->setStretchLastSection(true);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(
      RowLayout::height(ResultsRowKind::candidate, delegate_->fonts()));
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setItemDelegate(delegate_);

  // Slots run in the order of their connection: those of the view first.
  setModel(&rows);
  connect(&rows, &ResultsModel::modelAboutToBeReset, this, &ResultsList::saveCurrentRow);
  connect(&rows, &ResultsModel::modelReset, this, &ResultsList::restoreCurrentRow);
  connect(&rows, &ResultsModel::rowsInserted, this,
          [this](const QModelIndex&, int first, int last) {
            layOutRows(first, last);
            reveal(first, last);
          });
  connect(&rows, &ResultsModel::dataChanged, this, &ResultsList::announceCheckState);
  layOutRows(0, rows.rowCount() - 1);
  setCurrentFrom(0, 1);
}

// A candidate may be where a row with a height of its own was before.
void ResultsList::layOutRows(int first, int last) {
  const int defaultHeight = verticalHeader()->defaultSectionSize();
  for (int row = first; row <= last; ++row) {
    const ResultsRowKind kind = rows_.row(row).kind;
    if (kind == ResultsRowKind::candidate) {
      if (rowHeight(row) != defaultHeight) setRowHeight(row, defaultHeight);
      continue;
    }
    if (kind == ResultsRowKind::details) {
      const ScanCandidate* candidate = rows_.candidate(rows_.index(row - 1, 0));
      auto* details = new CandidateDetails(*candidate);
      setIndexWidget(rows_.index(row, 0), details);
      if (auto* copy = details->findChild<QWidget*>("copyCommand")) setTabOrder(this, copy);
      fitDetails(row);
    } else {
      setRowHeight(row, RowLayout::height(kind, delegate_->fonts()));
    }
  }
}

// Scrolls to the rows that were inserted, as far as the one that they belong to stays visible.
void ResultsList::reveal(int first, int last) {
  if (!isVisible()) return;
  executeDelayedItemsLayout();
  updateGeometries();
  scrollTo(rows_.index(last, 0), EnsureVisible);
  scrollTo(rows_.index(first - 1, 0), EnsureVisible);
}

void ResultsList::fitDetails(int row) {
  const QWidget* details = indexWidget(rows_.index(row, 0));
  if (details != nullptr) setRowHeight(row, details->heightForWidth(viewport()->width()));
}

void ResultsList::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  if (event->size().width() == event->oldSize().width()) return;
  for (int row = 0; row < rows_.rowCount(); ++row) {
    if (rows_.row(row).kind == ResultsRowKind::details) fitDetails(row);
  }
}

void ResultsList::saveCurrentRow() {
  savedCurrent_.reset();
  if (currentIndex().isValid()) savedCurrent_ = rows_.row(currentIndex().row());
}

void ResultsList::restoreCurrentRow() {
  layOutRows(0, rows_.rowCount() - 1);
  const int row = savedCurrent_ ? rows_.numberOf(*savedCurrent_) : -1;
  if (row < 0) {
    setCurrentFrom(0, 1);
    scrollToTop();
  } else {
    setCurrentIndex(rows_.index(row, 0));
    scrollTo(currentIndex(), EnsureVisible);
  }
}

void ResultsList::keyPressEvent(QKeyEvent* event) {
  window()->setAttribute(Qt::WA_KeyboardFocusChange);  // shows the focus ring
  if (handleKey(*event)) {
    event->accept();
  } else {
    QTableView::keyPressEvent(event);
  }
}

// Keys that work as in a list or a tree, not as in a table.
bool ResultsList::handleKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) {
    const ScanCandidate* candidate = rows_.candidate(currentIndex());
    if (candidate == nullptr) return false;
    QApplication::clipboard()->setText(display::pasteable(candidate->url));
    return true;
  }
  switch (event.key()) {
    case Qt::Key_Right:
      setExpanded(currentIndex(), true);
      return true;
    case Qt::Key_Left:
      setExpanded(currentIndex(), false);
      return true;
    case Qt::Key_Home:
      setCurrentFrom(0, 1);
      scrollToTop();
      return true;
    case Qt::Key_End:
      setCurrentFrom(rows_.rowCount() - 1, -1);
      return true;
    default:
      return false;
  }
}

void ResultsList::setExpanded(const QModelIndex& index, bool isExpanded) {
  rows_.setData(index, isExpanded, ExpandedRole);
}

// Makes the first enabled row, from there by steps of 1 or -1, the current one.
void ResultsList::setCurrentFrom(int from, int step) {
  for (int row = from; row >= 0 && row < rows_.rowCount(); row += step) {
    const QModelIndex index = rows_.index(row, 0);
    if ((index.flags() & Qt::ItemIsEnabled) == 0) continue;
    setCurrentIndex(index);
    return;
  }
}

void ResultsList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  viewport()->update();
}

void ResultsList::contextMenuEvent(QContextMenuEvent* event) {
  const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
  const QModelIndex index = isKey ? currentIndex() : indexAt(event->pos());
  const ScanCandidate* candidate = rows_.candidate(index);
  if (candidate == nullptr) return;
  const QPoint place =
      isKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
  auto* menu = new CandidateMenu(appModel_, *candidate, this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->popup(place);
}

// Qt's item views do not announce a changed check state to screen readers.
void ResultsList::announceCheckState(const QModelIndex& first, const QModelIndex&,
                                     const QList<int>& roles) {
  if (!QAccessible::isActive() || !roles.contains(Qt::CheckStateRole) || !first.isValid()) return;
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(this);
  if (table == nullptr || table->tableInterface() == nullptr || !currentIndex().isValid()) return;
  QAccessibleInterface* cell = table->tableInterface()->cellAt(currentIndex().row(), 0);
  if (cell == nullptr) return;
  QAccessible::State changed;
  changed.checked = true;
  QAccessibleStateChangeEvent event(cell, changed);
  QAccessible::updateAccessibility(&event);
}

}  // namespace broomtide::ui
