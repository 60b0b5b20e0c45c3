#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QStackedWidget>
#include <memory>

#include "app/AppModel.h"

namespace broomtide::ui {

/// The central widget: the screen of the model's route, constructed each time it is entered and
/// deleted when it is left, and the alert over it.
class ContentView final : public QStackedWidget {
  Q_OBJECT
 public:
  /// The model must outlive the view.
  explicit ContentView(AppModel& model, QWidget* parent = nullptr);

 private:
  QWidget* makeScreen();
  void onModelChanged(AppModel::Field field);
  void showScreen();
  void showAlert();

  AppModel& model_;
  QPointer<QMessageBox> alert_;
  std::shared_ptr<void> observation_;
};

}  // namespace broomtide::ui
