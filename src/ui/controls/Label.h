#pragma once

#include <QLabel>

#include "ui/look/Theme.h"

namespace broomtide::ui {

/// A label in plain text, never markup, with the font of a style and the colour of a tone.
class Label : public QLabel {
 public:
  explicit Label(const QString& text, TextStyle style = TextStyle::body, Tone tone = Tone::primary,
                 QWidget* parent = nullptr);

  /// Lets the text be selected and copied with mouse and keyboard.
  void makeSelectable();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void applyTone();

  Tone tone_;
};

/// A label on one line, elided in the middle.
class ElidedLabel final : public Label {
 public:
  using Label::Label;

  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// A value with a caption beneath; both are one accessible name.
class Metric final : public QWidget {
 public:
  /// `name` is the object name.
  Metric(const char* name, const QString& label, Qt::Alignment alignment,
         QWidget* parent = nullptr);

  void setValue(const QString& value);

  /// Makes the value at least as wide as this text, so that nothing moves when it changes.
  void reserve(const QString& longest);

 private:
  Label* value_;
  Label* label_;
};

}  // namespace broomtide::ui
