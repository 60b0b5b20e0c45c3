#pragma once

#include <QWidget>

#include "app/AppModel.h"

namespace broomtide::ui {

class ScanModeCard;

/// The start screen: the three ways to scan, what the application promises, and the way to the
/// history. A folder that is dropped on it is scanned as a folder of projects.
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
