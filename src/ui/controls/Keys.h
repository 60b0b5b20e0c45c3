#pragma once

#include <QObject>

QT_FORWARD_DECLARE_CLASS(QAbstractButton)
QT_FORWARD_DECLARE_CLASS(QAbstractItemView)
QT_FORWARD_DECLARE_CLASS(QKeyEvent)
QT_FORWARD_DECLARE_CLASS(QLineEdit)
QT_FORWARD_DECLARE_CLASS(QWidget)

/// What the keys that answer do: Return (or Enter), Escape and Space.
namespace broomtide::ui::keys {

/// Makes Return press `button` from anywhere in `screen`, except that another button of it that has
/// the focus is pressed instead. A key that is held down counts once.
void setDefaultAction(QWidget& screen, QAbstractButton& button);

/// Makes Escape press `button` from anywhere in `screen`.
void setCancelAction(QWidget& screen, QAbstractButton& button);

/// For the key events of a button that has the focus: Return presses it, on screens without a
/// default action too. Returns false for all other events.
bool clickOnReturn(QAbstractButton& button, const QKeyEvent& event);

/// While `popup`, the list of a combo box, is open, Return chooses from it, and does not go on to
/// the default action of the screen around.
void chooseOnReturn(QAbstractItemView& popup);

/// From `filter`, Return and Down lead to `list` instead of the default action of the screen, and
/// Escape clears the filter first.
void leadToList(QLineEdit& filter, QWidget& list);

/// Lets a key that is held down act once. An X server repeats such a key as a release and a press
/// of the same moment, which Qt takes for a new press whenever it reads the two apart; one held key
/// would then go through screen after screen. To be installed as an event filter of the
/// application.
class AutoRepeatFilter final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool isAutoRepeated(const QKeyEvent& press) const;

  int releasedKey_ = 0;
  quint64 releasedAt_ = 0;  // milliseconds of the X server's clock
};

}  // namespace broomtide::ui::keys
