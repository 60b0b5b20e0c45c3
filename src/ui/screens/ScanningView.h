#pragma once

#include <QWidget>
#include <memory>

#include "app/AppModel.h"
#include "ui/controls/FrameRefresh.h"

namespace broomtide::ui {

class Label;
class Metric;

/// What is shown while a scan runs: the folder, where the scan is, what it has found so far, and
/// the way out.
class ScanningView final : public QWidget {
  Q_OBJECT
 public:
  explicit ScanningView(AppModel& model, QWidget* parent = nullptr);

 private:
  QLayout* metrics();
  void refresh();

  AppModel& model_;
  Label* currentPath_;
  Metric* itemsScanned_;
  Metric* reclaimable_;
  Metric* matches_;
  FrameRefresh frame_;
  std::shared_ptr<void> observation_;
};

}  // namespace broomtide::ui
