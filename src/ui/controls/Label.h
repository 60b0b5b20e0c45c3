#pragma once

#include <QLabel>

#include "ui/look/Theme.h"

namespace broomtide::ui {

/// A text in one of the styles and tones of the window. It is never read as markup.
class Label : public QLabel {
 public:
  explicit Label(const QString& text, TextStyle style = TextStyle::body, Tone tone = Tone::primary,
                 QWidget* parent = nullptr);

  /// Lets the text be selected and copied, with the mouse and the keyboard.
  void makeSelectable();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void applyTone();

  Tone tone_;
};

/// A text on one line that is shortened in the middle when there is no room for all of it.
class ElidedLabel final : public Label {
 public:
  using Label::Label;

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A value with what it means beneath it.
class Metric final : public QWidget {
 public:
  /// `name` is the object name.
  Metric(const char* name, const QString& label, Qt::Alignment alignment,
         QWidget* parent = nullptr);

  void setValue(const QString& value);

  /// Keeps room for this value, so that what stands beside does not move when values change.
  void reserve(const QString& longest);

 private:
  Label* value_;
  Label* label_;
};

}  // namespace broomtide::ui
