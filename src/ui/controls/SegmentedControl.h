#pragma once

#include <QButtonGroup>
#include <QWidget>
#include <functional>

namespace broomtide::ui {

/// Buttons in a row of which exactly one is down.
class SegmentedControl final : public QWidget {
 public:
  /// The first segment is down. `onChange` is told the position of another one that people choose.
  SegmentedControl(const QString& label, const QStringList& segments,
                   std::function<void(int)> onChange, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QButtonGroup group_;
};

}  // namespace broomtide::ui
