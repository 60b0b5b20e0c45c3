#pragma once

#include <QPushButton>

namespace broomtide::ui {

/// A button whose named icon, if it has one, takes the colour of its text.
class Button final : public QPushButton {
 public:
  enum class Look {
    bordered,
    prominent,  ///< the default action of a screen
    plain,      ///< without an outline, in a secondary colour
  };

  explicit Button(const QString& text, Look look = Look::bordered, QString symbol = {},
                  QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void applyTheme();

  Look look_;
  QString symbol_;
};

/// Makes Return press `button` from anywhere in `screen`, except that another button of it that has
/// the focus is pressed instead. A key that is held down counts once.
void setDefaultAction(QWidget& screen, QAbstractButton& button);

/// Makes Escape press `button` from anywhere in `screen`.
void setCancelAction(QWidget& screen, QAbstractButton& button);

}  // namespace broomtide::ui
