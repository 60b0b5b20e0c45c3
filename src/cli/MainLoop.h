#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "app/MainThread.h"

namespace broomtide::cli {

/// Makes the thread that runs the loop the main thread.
class MainLoop final : public MainThread {
 public:
  void post(std::function<void()> work) override;

  /// Runs what is posted until `isDone`, which is asked before each piece of work, says so.
  void runUntil(const std::function<bool()>& isDone);

 private:
  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> work_;
};

}  // namespace broomtide::cli
