#include "cli/MainLoop.h"

#include <utility>

namespace broomtide::cli {

void MainLoop::post(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  work_.push_back(std::move(work));
  posted_.notify_one();
}

void MainLoop::runUntil(const std::function<bool()>& isDone) {
  while (!isDone()) {
    std::unique_lock lock(mutex_);
    posted_.wait(lock, [this] { return !work_.empty(); });
    const std::function<void()> next = std::move(work_.front());
    work_.pop_front();
    lock.unlock();
    next();
  }
}

}  // namespace broomtide::cli
