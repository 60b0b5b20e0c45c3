#pragma once

#include <functional>
#include <memory>
#include <stop_token>

#include "app/AppModel.h"
#include "app/Surroundings.h"
#include "ui/shell/DesktopColours.h"
#include "ui/shell/FolderDialog.h"
#include "ui/shell/MainWindow.h"
#include "ui/shell/QtMainThread.h"

QT_FORWARD_DECLARE_CLASS(QApplication)

namespace broomtide::ui {

/// Owns the model with its real services and the main window. The QApplication must outlive it.
/// There can be one at a time. Quitting, a request of the system to end (SIGTERM and the like) and
/// the loss of the display all end alike: a cleanup finishes its current item and is recorded.
class BroomtideApp final {
 public:
  BroomtideApp();
  ~BroomtideApp();

  MainWindow& window() { return window_; }

  /// Sets name, version and style, and installs translators and event filters. To be called once,
  /// before there is a widget.
  static void configure(QApplication& application);

 private:
  static void endTasks();

  Interruption interruption_;
  QtMainThread mainThread_;
  DesktopColours colours_;
  FolderDialog folderDialog_;
  UnrestrictedAccess access_;
  std::unique_ptr<AppModel> model_;
  MainWindow window_;
  std::stop_callback<std::function<void()>> quitting_;
};

}  // namespace broomtide::ui
