#pragma once

#include <QWidget>
#include <memory>

#include "app/AppModel.h"
#include "ui/controls/FrameRefresh.h"

QT_FORWARD_DECLARE_CLASS(QStackedWidget)

namespace broomtide::ui {

class ResultsFooter;
class ResultsHeader;
class ResultsList;
class ResultsModel;

/// Where people review what a scan has found and decide what goes to the Trash.
class ResultsView final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultsView(AppModel& model, QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* nothingFound() const;
  void addLists();
  void showProjects(bool areShown);
  void filter(const QString& text);
  void refresh();

  AppModel& model_;
  ResultsHeader* header_;
  QStackedWidget* body_;
  ResultsFooter* footer_;
  ResultsModel* rows_ = nullptr;  // null when nothing was found
  ResultsList* list_ = nullptr;
  QWidget* noMatch_ = nullptr;
  QWidget* projects_ = nullptr;  // made when it is first shown
  bool areProjectsShown_ = false;
  FrameRefresh frame_;
  std::shared_ptr<void> observation_;
};

}  // namespace broomtide::ui
