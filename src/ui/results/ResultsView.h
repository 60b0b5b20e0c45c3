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

/// The results screen: header, list or projects, and footer.
class ResultsView final : public QWidget {
  Q_OBJECT
 public:
  explicit ResultsView(AppModel& model, QWidget* parent = nullptr);

 private:
  void arrange();
  QWidget* nothingFound() const;
  static QWidget* nothingMatches();
  void showProjects(bool areShown);
  void filter(const QString& text);
  void refresh();

  AppModel& model_;
  ResultsHeader* header_;
  QStackedWidget* body_;
  ResultsModel* rows_;
  ResultsList* list_;
  QWidget* empty_;  // in place of candidates
  ResultsFooter* footer_;
  FrameRefresh frame_;
  std::shared_ptr<void> observation_;
};

}  // namespace broomtide::ui
