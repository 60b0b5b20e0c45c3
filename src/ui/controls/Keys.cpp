#include "ui/controls/Keys.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

namespace broomtide::ui::keys {
namespace {

bool isReturn(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

// The keys that press buttons and leave screens. Others may repeat as they like.
bool isButtonKey(int key) { return isReturn(key) || key == Qt::Key_Space || key == Qt::Key_Escape; }

QShortcut* shortcut(QWidget& screen, Qt::Key key) {
  auto* result = new QShortcut(QKeySequence(key), &screen);
  result->setContext(Qt::WidgetWithChildrenShortcut);
  result->setAutoRepeat(false);
  return result;
}

// The button that people would expect Return to press: the one that has the focus, if any.
QAbstractButton& focusedButton(const QWidget& screen, QAbstractButton& otherwise) {
  auto* focused = qobject_cast<QPushButton*>(screen.focusWidget());
  const bool isButton = focused != nullptr && focused->hasFocus() && focused->isEnabled();
  return isButton ? *focused : otherwise;
}

class PopupKeys final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::ShortcutOverride &&
        isReturn(static_cast<QKeyEvent*>(event)->key()))
      event->accept();
    return QObject::eventFilter(watched, event);  // the combo box sees it too, and chooses
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
    event->accept();  // which keeps shortcuts from seeing it
    return true;
  }
  if (!isPress && isButtonKey(key->key()) && !key->isAutoRepeat()) {
    releasedKey_ = key->key();
    releasedAt_ = key->timestamp();
  }
  return QObject::eventFilter(watched, event);
}

// Presses that Qt itself knows to be repetitions are left to it.
bool AutoRepeatFilter::isAutoRepeated(const QKeyEvent& press) const {
  return releasedAt_ != 0 && press.key() == releasedKey_ && press.timestamp() == releasedAt_ &&
         !press.isAutoRepeat();
}

}  // namespace broomtide::ui::keys
