#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

namespace broomtide::ui {

/// A turning wheel: something is going on, and nobody knows for how long.
class BusyIndicator final : public QWidget {
  Q_OBJECT
 public:
  explicit BusyIndicator(QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QTimer frames_;
  QElapsedTimer time_;
};

}  // namespace broomtide::ui
