// The queue of the main thread.
//
// post() appends a callback under the mutex and, unless that is already done, posts one event. The
// event starts a timer without interval, and each of its timeouts runs callbacks for a slice of
// five milliseconds. Nothing runs in the event itself: Qt handles posted events, and those posted
// meanwhile, before it looks for input, so a scan that posts without a pause would block the
// window. Between two timeouts, input and repaints have their turn.
//
// The timer stops, and isScheduled_ is reset, under the lock that has found the queue empty, so no
// callback is left behind. Callbacks run without the lock: they may post more, and may open a
// nested event loop, in which the timer goes on with the queue.

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
