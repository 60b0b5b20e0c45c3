#pragma once

#include <QWidget>

#include "app/AppModel.h"

namespace broomtide::ui {

/// What each project could free, the largest first, with a bar for its share of the largest.
class ProjectList final : public QWidget {
  Q_OBJECT
 public:
  explicit ProjectList(const AppModel& model, QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
