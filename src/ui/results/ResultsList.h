// The results list: rows, model, delegate and view.
//
// ResultsRows arranges the rows, eight bytes each: a kind, and the index of a candidate or an
// issue. ResultsModel is a table model of one column over them. It copies nothing: data() reads the
// candidates of the AppModel. ResultsDelegate paints from roles alone; RowLayout has the geometry
// for measuring, painting and hit tests.
//
// Keys and clicks end in setData(); the context menu calls the AppModel itself. CheckStateRole is
// passed on to the AppModel, whose observers turn each change of the selection into one
// dataChanged. ExpandedRole inserts or removes the rows below. Sorting and filtering reset the
// model: the list saves the current row as a ResultsRow before and restores it after, because a
// QModelIndex does not survive.
//
// Candidates have the default section size of the vertical header, so a reset does not measure
// 100,000 rows. layOutRows() sets the other heights, and makes expanded details index widgets.

#pragma once

#include <QTableView>
#include <optional>

#include "app/AppModel.h"
#include "ui/results/ResultsModel.h"

namespace broomtide::ui {

class ResultsDelegate;

/// The view of the results list. Space selects, Right and Left expand and collapse, Copy takes the
/// path of a candidate, which has a context menu as well. Only expanded details are widgets, so
/// that their text can be selected.
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
  std::optional<ResultsRow> savedCurrent_;  // the current row during a model reset
};

}  // namespace broomtide::ui
