#pragma once

#include <QWidget>

#include "app/AppModel.h"

namespace broomtide::ui {

/// The history screen: the cleanups so far, the newest first.
class HistoryView final : public QWidget {
  Q_OBJECT
 public:
  explicit HistoryView(AppModel& model, QWidget* parent = nullptr);

 private:
  QLayout* header(AppModel& model);
};

}  // namespace broomtide::ui
