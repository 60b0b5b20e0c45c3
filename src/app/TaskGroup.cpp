#include "app/TaskGroup.h"

#include <utility>

namespace broomtide {

TaskGroup::~TaskGroup() {
  // All are asked before the first is waited for, so that they end side by side.
  for (Task& task : tasks_) task.thread.request_stop();
}

std::stop_source TaskGroup::start(Work work) {
  tasks_.remove_if([](const Task& task) { return task.hasEnded.load(); });
  std::list<Task> started(1);
  Task& task = started.front();
  task.thread = std::jthread([&task, work = std::move(work)](const std::stop_token& stop) {
    work(stop);
    task.hasEnded = true;
  });
  tasks_.splice(tasks_.end(), started);
  return task.thread.get_stop_source();
}

}  // namespace broomtide
