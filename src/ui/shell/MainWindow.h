#pragma once

#include <QMainWindow>

#include "app/AppModel.h"

namespace broomtide::ui {

/// The main window: a `ContentView` and the menu bar.
class MainWindow final : public QMainWindow {
  Q_OBJECT
 public:
  /// The model must outlive the window.
  explicit MainWindow(AppModel& model);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void addApplicationMenu();
  void addHelpMenu();
  void showSettings();
  void showAbout();

  AppModel& model_;
};

}  // namespace broomtide::ui
