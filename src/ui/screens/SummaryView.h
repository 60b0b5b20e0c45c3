#pragma once

#include <QWidget>

#include "app/AppModel.h"

namespace broomtide::ui {

/// The summary screen: what the last cleanup moved, and what failed.
class SummaryView final : public QWidget {
  Q_OBJECT
 public:
  explicit SummaryView(AppModel& model, QWidget* parent = nullptr);

 private:
  QLayout* buttons(AppModel& model);
};

}  // namespace broomtide::ui
