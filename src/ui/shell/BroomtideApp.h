#pragma once

#include <memory>

#include "app/AppModel.h"
#include "app/Surroundings.h"
#include "ui/shell/DesktopColours.h"
#include "ui/shell/FolderDialog.h"
#include "ui/shell/MainWindow.h"
#include "ui/shell/QtMainThread.h"

QT_FORWARD_DECLARE_CLASS(QApplication)

namespace broomtide::ui {

/// The application: the one model with its real services, and the one window. Needs a
/// QApplication that lives longer.
class BroomtideApp final {
 public:
  BroomtideApp();

  MainWindow& window() { return window_; }

  /// What the desktop and the widgets are told about the application, before any of them is made.
  static void configure(QApplication& application);

 private:
  QtMainThread mainThread_;
  DesktopColours colours_;
  FolderDialog folderDialog_;
  UnrestrictedAccess access_;
  std::unique_ptr<AppModel> model_;
  MainWindow window_;
};

}  // namespace broomtide::ui
