#pragma once

#include <QButtonGroup>
#include <QPushButton>
#include <functional>

namespace broomtide::ui {

/// A push button that Return clicks too while it has the focus. It is in the tab order, but a click
/// does not give it the focus.
class Button final : public QPushButton {
 public:
  enum class Look {
    bordered,
    prominent,  ///< of the default action, which `keys::setDefaultAction` sets
    plain,      ///< without an outline, in a secondary colour
  };

  /// `symbol` names an icon (`symbols::icon`) in the colour of the text; empty for none.
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

/// Exclusive buttons in a row, of which exactly one is checked.
class SegmentedControl final : public QWidget {
 public:
  /// The first segment is checked. `label` is the accessible name, `onChange` is called with the
  /// index of each segment that becomes checked. REQUIRES: `segments` is not empty.
  SegmentedControl(const QString& label, const QStringList& segments,
                   std::function<void(int)> onChange, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QButtonGroup group_;
};

}  // namespace broomtide::ui
