#pragma once

#include <QWidget>

namespace broomtide::ui {

/// The mark of the application, for the eye alone.
class BrandMark final : public QWidget {
 public:
  /// `side` is the length of its sides.
  explicit BrandMark(int side, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace broomtide::ui
