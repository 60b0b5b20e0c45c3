#pragma once

#include <QWidget>

namespace broomtide::ui {

/// A line across, between parts of a screen.
class Divider final : public QWidget {
 public:
  explicit Divider(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace broomtide::ui
