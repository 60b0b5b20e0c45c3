#pragma once

#include <QButtonGroup>
#include <QPushButton>
#include <functional>

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

/// Buttons in a row of which exactly one is down.
class SegmentedControl final : public QWidget {
 public:
  /// The first segment is down. `onChange` is told the position of another one that people choose.
  /// REQUIRES: `segments` is not empty.
  SegmentedControl(const QString& label, const QStringList& segments,
                   std::function<void(int)> onChange, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QButtonGroup group_;
};

}  // namespace broomtide::ui
