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

/// The upper part of the results: the way home, what was scanned, what it comes to, and how it is
/// shown.
class ResultsHeader final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultsHeader(AppModel& model, QWidget* parent = nullptr);

  /// Shows what the candidates come to, and what else the scan has found.
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

/// The lower part of the results: what is selected, and what can be done with it.
class ResultsFooter final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultsFooter(AppModel& model, QWidget* parent = nullptr);

  /// Shows what is selected; the filter leaves out this many of the items.
  void refresh(const Selection::Totals& totals, std::size_t hiddenCount);

  /// The default action of the screen.
  Button& move() { return *move_; }

 private:
  Label* selection_;
  Button* move_;
};

}  // namespace broomtide::ui
