#pragma once

#include <QWidget>
#include <memory>

#include "app/AppModel.h"
#include "ui/controls/FrameRefresh.h"

namespace broomtide::ui {

class Label;
class Metric;

/// The screen of a running scan: its progress, and the button that cancels it.
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
