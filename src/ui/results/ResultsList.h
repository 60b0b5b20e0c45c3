#pragma once

#include <QTableView>
#include <optional>

#include "app/AppModel.h"
#include "ui/results/ResultsModel.h"

namespace broomtide::ui {

class ResultsDelegate;

/// The list of what was found. Space selects, right and left open and close, and there is a menu
/// for each candidate. Rows are drawn; only details that are open are widgets, so that their text
/// can be selected.
class ResultsList final : public QTableView {
  Q_OBJECT
 public:
  /// Both models must outlive the list.
  ResultsList(AppModel& appModel, ResultsModel& rows, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  bool handleKey(const QKeyEvent& event);
  void setExpanded(const QModelIndex& index, bool isExpanded);
  void setCurrentFrom(int from, int step);
  void saveCurrentRow();
  void restoreCurrentRow();
  void layOutRows(int first, int last);
  void reveal(int first, int last);
  void fitDetails(int row);
  void announceCheckState(const QModelIndex& first, const QModelIndex& last,
                          const QList<int>& roles);

  AppModel& appModel_;
  ResultsModel& rows_;
  ResultsDelegate* delegate_;
  std::optional<ResultsRow> savedCurrent_;  // the current row while all rows change
};

}  // namespace broomtide::ui
