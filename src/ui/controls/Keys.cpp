// Keys that act on a whole screen.
//
// Return and Escape are shortcuts of a screen. Before Qt looks for a shortcut, it sends the key to
// the widget that has the focus, as a ShortcutOverride event; when that is accepted, there is no
// shortcut, and the key press follows. So the event filters of a popup and of a filter field keep
// their keys from the screen.
//
// A key that is held down must act once, or it would go through one screen after the other.
// Shortcuts do not auto-repeat, and buttons ignore presses that Qt marks as auto-repeat. But an X
// server repeats a key as a release and a press with one timestamp, and Qt recognises the pair only
// if it reads both at once. AutoRepeatFilter remembers the last release and drops a press of the
// same key with the same timestamp; a person needs longer.

#include "ui/controls/Keys.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace broomtide::ui::keys {
namespace {

bool isReturn(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

// Keys that click buttons or leave a screen; all others may auto-repeat.
bool isButtonKey(int key) { return isReturn(key) || key == Qt::Key_Space || key == Qt::Key_Escape; }

QShortcut* shortcut(QWidget& screen, Qt::Key key) {
  auto* result = new QShortcut(QKeySequence(key), &screen);
  result->setContext(Qt::WidgetWithChildrenShortcut);
  result->setAutoRepeat(false);
  return result;
}

QAbstractButton& focusedButton(const QWidget& screen, QAbstractButton& fallback) {
  auto* focused = qobject_cast<QPushButton*>(screen.focusWidget());
  const bool isButton = focused != nullptr && focused->hasFocus() && focused->isEnabled();
  return isButton ? *focused : fallback;
}

class PopupKeys final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride &&
        isReturn(static_cast<QKeyEvent*>(event)->key()))
      event->accept();
    return QObject::eventFilter(watched, event);  // to the combo box, which chooses
  }
};

class FilterKeys final : public QObject {
 public:
  FilterKeys(QLineEdit& filter, QWidget& list) : QObject(&filter), filter_(filter), list_(list) {}

  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool isPress = event->type() == QEvent::KeyPress;
    if (!isPress && event->type() != QEvent::ShortcutOverride)
      return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (!isReturn(key) && key != Qt::Key_Down && key != Qt::Key_Escape)
      return QObject::eventFilter(watched, event);
    if (isPress) leave(key);
    event->accept();
    return true;
  }

 private:
  void leave(int key) {
    if (key == Qt::Key_Escape) filter_.clear();
    list_.setFocus(Qt::ShortcutFocusReason);
  }

  QLineEdit& filter_;
  QWidget& list_;
};

}  // namespace

void setDefaultAction(QWidget& screen, QAbstractButton& button) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    QObject::connect(shortcut(screen, key), &QShortcut::activated, &button,
                     [&screen, &button] { focusedButton(screen, button).click(); });
  }
}

void setCancelAction(QWidget& screen, QAbstractButton& button) {
  QObject::connect(shortcut(screen, Qt::Key_Escape), &QShortcut::activated, &button,
                   [&button] { button.click(); });
}

bool clickOnReturn(QAbstractButton& button, const QKeyEvent& event) {
  if (!isReturn(event.key()) || event.isAutoRepeat()) return false;
  button.click();
  return true;
}

void chooseOnReturn(QAbstractItemView& popup) { popup.installEventFilter(new PopupKeys(&popup)); }

void leadToList(QLineEdit& filter, QWidget& list) {
  filter.installEventFilter(new FilterKeys(filter, list));
}

bool AutoRepeatFilter::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress =
      event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (!isPress && event->type() != QEvent::KeyRelease) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (isPress && isAutoRepeated(*key)) {
    event->accept();  // so that no shortcut is looked for
    return true;
  }
  if (!isPress && isButtonKey(key->key()) && !key->isAutoRepeat()) {
    releasedKey_ = key->key();
    releasedAt_ = key->timestamp();
  }
  return QObject::eventFilter(watched, event);
}

// What Qt marks as auto-repeat is left to shortcuts and buttons.
bool AutoRepeatFilter::isAutoRepeated(const QKeyEvent& press) const {
  return releasedAt_ != 0 && press.key() == releasedKey_ && press.timestamp() == releasedAt_ &&
         !press.isAutoRepeat();
}

}  // namespace broomtide::ui::keys
