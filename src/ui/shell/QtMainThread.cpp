#include "ui/shell/QtMainThread.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <utility>

namespace broomtide::ui {

void QtMainThread::post(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  queue_.push_back(std::move(work));
  if (std::exchange(isScheduled_, true)) return;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

// Events that are posted while others are handled are handled with them, input comes later. A
// timer lets it through.
void QtMainThread::customEvent(QEvent*) { timer_.start(0, this); }

void QtMainThread::timerEvent(QTimerEvent*) {
  constexpr qint64 slice = 5;  // milliseconds
  QElapsedTimer time;
  time.start();
  while (runNext()) {
    if (time.elapsed() >= slice) return;
  }
}

bool QtMainThread::runNext() {
  std::function<void()> next;
  {
    const std::lock_guard lock(mutex_);
    if (queue_.empty()) {
      isScheduled_ = false;
      timer_.stop();
      return false;
    }
    next = std::move(queue_.front());
    queue_.pop_front();
  }
  next();
  return true;
}

}  // namespace broomtide::ui
