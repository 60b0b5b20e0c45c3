#pragma once

#include <QBasicTimer>
#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

#include "app/Surroundings.h"

namespace broomtide::ui {

/// Runs callbacks in the event loop of the thread that constructs this object, in time slices that
/// leave room for input and repaints. Those that are queued at its destruction are dropped.
class QtMainThread final : public QObject, public MainThread {
  Q_OBJECT
 public:
  void post(std::function<void()> work) override;

 protected:
  void customEvent(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  bool runNext();

  std::mutex mutex_;
  std::deque<std::function<void()>> queue_;  // guarded by the mutex
  bool isScheduled_ = false;  // guarded by the mutex: an event or the timer is on its way
  QBasicTimer timer_;
};

}  // namespace broomtide::ui
