#pragma once

#include <QBasicTimer>
#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

#include "app/Surroundings.h"

namespace broomtide::ui {

/// The thread that made this object, through its event loop. What is posted runs in slices between
/// which the window answers, however much comes.
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
  bool isScheduled_ = false;                 // guarded by it too: somebody will come for the work
  QBasicTimer timer_;
};

}  // namespace broomtide::ui
