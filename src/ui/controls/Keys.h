#pragma once

#include <QObject>

QT_FORWARD_DECLARE_CLASS(QAbstractButton)
QT_FORWARD_DECLARE_CLASS(QAbstractItemView)
QT_FORWARD_DECLARE_CLASS(QKeyEvent)
QT_FORWARD_DECLARE_CLASS(QLineEdit)
QT_FORWARD_DECLARE_CLASS(QWidget)

/// The default action, the cancel action and the auto-repeat of Return (or Enter), Escape and
/// Space. How key events reach them is explained in Keys.cpp.
namespace broomtide::ui::keys {

/// Makes Return a shortcut of `screen` that clicks the push button that has the focus, else
/// `button`. Auto-repeat does not click again. The shortcut is a child of `screen`.
void setDefaultAction(QWidget& screen, QAbstractButton& button);

/// Makes Escape a shortcut of `screen` that clicks `button`, without auto-repeat.
void setCancelAction(QWidget& screen, QAbstractButton& button);

/// For `keyPressEvent` of a button: Return clicks it, on screens without a default action too.
/// Returns whether it did; other keys and auto-repeat are left to the base class.
bool clickOnReturn(QAbstractButton& button, const QKeyEvent& event);

/// While `popup`, the view of a combo box, is open, Return chooses its current item and does not
/// trigger the default action of the screen.
void chooseOnReturn(QAbstractItemView& popup);

/// Return, Down and Escape move the focus from `filter` to `list` instead of triggering shortcuts
/// of the screen; Escape clears the filter first. REQUIRES: `list` outlives `filter`.
void leadToList(QLineEdit& filter, QWidget& list);

/// Drops auto-repeat of Return, Escape and Space that Qt does not recognise on X11. To be installed
/// as an event filter of the application.
class AutoRepeatFilter final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool isAutoRepeated(const QKeyEvent& press) const;

  int releasedKey_ = 0;
  quint64 releasedAt_ = 0;  // timestamp in milliseconds of the X server's clock
};

}  // namespace broomtide::ui::keys
