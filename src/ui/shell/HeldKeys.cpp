#include "ui/shell/HeldKeys.h"

#include <QKeyEvent>

namespace broomtide::ui {
namespace {

// The keys that press buttons and leave screens. Others may repeat as they like.
bool isAnswer(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space ||
         key == Qt::Key_Escape;
}

}  // namespace

bool HeldKeys::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress =
      event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (!isPress && event->type() != QEvent::KeyRelease) return QObject::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (!isAnswer(key->key()) || key->isAutoRepeat()) return QObject::eventFilter(watched, event);
  if (!isPress) {
    releasedKey_ = key->key();
    releasedAt_ = key->timestamp();
    return QObject::eventFilter(watched, event);
  }
  const bool isHeld =
      releasedAt_ != 0 && key->key() == releasedKey_ && key->timestamp() == releasedAt_;
  if (!isHeld) return QObject::eventFilter(watched, event);
  event->accept();  // which keeps shortcuts from seeing it
  return true;
}

}  // namespace broomtide::ui
