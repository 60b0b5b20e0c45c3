#pragma once

#include <QLabel>

#include "ui/look/Theme.h"
#include "ui/look/Typography.h"

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

}  // namespace broomtide::ui
