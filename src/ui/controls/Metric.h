#pragma once

#include <QWidget>

namespace broomtide::ui {

class Label;

/// A value with what it means beneath it.
class Metric final : public QWidget {
 public:
  explicit Metric(const QString& label, Qt::Alignment alignment, QWidget* parent = nullptr);

  void setValue(const QString& value);

  /// Keeps room for this value, so that what stands beside does not move when values change.
  void reserve(const QString& widest);

  QString value() const;
  QString label() const;

 private:
  Label* value_;
  Label* label_;
};

}  // namespace broomtide::ui
