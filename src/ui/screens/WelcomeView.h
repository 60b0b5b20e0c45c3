#pragma once

#include <QWidget>

#include "app/AppModel.h"

namespace broomtide::ui {

class ScanModeCard;

/// The start screen: a card for each scan mode, and the button for the history. It is a drop
/// target: a folder that is dropped on it is scanned as a folder of projects.
class WelcomeView final : public QWidget {
  Q_OBJECT
 public:
  explicit WelcomeView(AppModel& model, QWidget* parent = nullptr);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QLayout* cards();
  QLayout* trustNotes();
  void setDropTarget(bool isDropTarget);

  AppModel& model_;
  bool isDropTarget_ = false;
};

}  // namespace broomtide::ui
