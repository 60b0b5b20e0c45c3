#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/FakeServices.h"
#include "ui/shell/MainWindow.h"
#include "ui/shell/QtMainThread.h"

namespace broomtide::test {

/// The window over a model with fake services. Everything happens in the event loop.
class TestWindow {
 public:
  explicit TestWindow(std::optional<std::string> home = "/home/ada")
      : model_(servicesOf(script), AppModel::Surroundings{.mainThread = main_,
                                                          .folderPicker = picker,
                                                          .access = access,
                                                          .homeFolder = std::move(home)}),
        window_(model_) {}

  AppModel& model() { return model_; }
  ui::MainWindow& window() { return window_; }

  /// Handles events until `isDone`, however long that takes.
  static void runUntil(const std::function<bool()>& isDone) {
    while (!isDone()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  /// Handles events until the model shows this screen.
  void runUntil(Route route) {
    runUntil([&] { return model_.route() == route; });
  }

  /// Scans to the end with this result.
  void scan(ScanResult result, ScanMode mode = ScanMode::project,
            const std::string& root = "/home/ada/src") {
    script.scans.push_back([result = std::move(result)](const auto& onUpdate, const auto&) {
      tell(onUpdate, {.entriesScanned = 15767, .reclaimableBytes = 0, .currentPath = "end"},
           result.candidates, 0);
      return result;
    });
    model_.beginScan(root, mode, true);
    runUntil(Route::results);
  }

  Script script;
  ScriptedPicker picker;
  RecordedAccess access;

 private:
  ui::QtMainThread main_;
  AppModel model_;
  ui::MainWindow window_;
};

}  // namespace broomtide::test
