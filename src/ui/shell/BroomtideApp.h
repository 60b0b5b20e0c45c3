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

/// Owns the model with its real services and the main window. The QApplication must outlive it.
class BroomtideApp final {
 public:
  BroomtideApp();

  MainWindow& window() { return window_; }

  /// Sets name, version and style, and installs translators and event filters. To be called once,
  /// before there is a widget.
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
