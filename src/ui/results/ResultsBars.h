#pragma once

#include <QWidget>

#include "app/AppModel.h"
#include "core/SortOrder.h"

QT_FORWARD_DECLARE_CLASS(QBoxLayout)
QT_FORWARD_DECLARE_CLASS(QLineEdit)

namespace broomtide::ui {

class Button;
class Label;
class Metric;

/// The upper part of the results: Home, title, filter and sort order; metrics, tabs and the buttons
/// that select.
class ResultsHeader final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultsHeader(AppModel& model, QWidget* parent = nullptr);

  /// Updates the metrics.
  void refresh(const Selection::Totals& totals);

  QLineEdit& filter() { return *filter_; }

 signals:
  void sortChosen(broomtide::SortOrder order);
  void projectsChosen(bool areProjectsShown);
  void filterChanged(const QString& text);

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void applyTheme();
  QLayout* titleLine();
  QLayout* titles();
  QLayout* metrics();
  QLayout* controls();

  AppModel& model_;
  QLineEdit* filter_;
  QAction* filterIcon_;
  Metric* found_;
  Metric* selected_;
  Metric* scanned_;
  Metric* projects_;
  Metric* matches_;
  QBoxLayout* secondLine_;
};

/// The lower part of the results: Rescan, the totals of the selection, and Move Selected to Trash.
class ResultsFooter final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultsFooter(AppModel& model, QWidget* parent = nullptr);

  /// Updates the totals. `hiddenCount` is how many selected candidates the filter hides.
  void refresh(const Selection::Totals& totals, std::size_t hiddenCount);

  /// The default action of the screen.
  Button& move() { return *move_; }

 private:
  Label* selection_;
  Button* move_;
};

}  // namespace broomtide::ui
