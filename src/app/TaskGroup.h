#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <stop_token>
#include <thread>

namespace broomtide {

/// Blocking work in the background, each task on a thread of its own. The group itself is used from
/// one thread. Tasks that were asked to stop stay in it until they end.
class TaskGroup {
 public:
  /// Runs on the task's thread and must not throw.
  using Work = std::function<void(const std::stop_token& stop)>;

  TaskGroup() = default;

  /// Asks every task to stop and waits for all of them.
  ~TaskGroup();

  TaskGroup(const TaskGroup&) = delete;
  TaskGroup& operator=(const TaskGroup&) = delete;

  /// Starts `work` and returns at once. What is returned asks this one task to stop and stays
  /// valid after its end. Throws std::system_error when no thread can be started.
  std::stop_source start(Work work);

 private:
  struct Task {
    std::atomic<bool> hasEnded = false;
    std::jthread thread;
  };

  std::list<Task> tasks_;  // a list, as each thread refers to its task
};

}  // namespace broomtide
