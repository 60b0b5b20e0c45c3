#pragma once

#include <QWidget>
#include <memory>

#include "app/AppModel.h"

namespace broomtide::ui {

class Button;
class Label;

/// The confirmation screen, before the selection is moved to the Trash. Its buttons stay while the
/// cleanup runs, with Move disabled.
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
