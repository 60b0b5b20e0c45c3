#pragma once

#include <QWidget>
#include <memory>

#include "app/AppModel.h"

namespace broomtide::ui {

class Button;
class Label;

/// Asks whether to move what is selected to the Trash.
class ConfirmationView final : public QWidget {
  Q_OBJECT
 public:
  explicit ConfirmationView(AppModel& model, QWidget* parent = nullptr);

 private:
  void refresh();
  QLayout* buttons();

  AppModel& model_;
  Label* total_;
  Label* warning_;
  Button* move_;
  std::shared_ptr<void> observation_;
};

}  // namespace broomtide::ui
