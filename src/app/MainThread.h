#pragma once

#include <functional>

namespace broomtide {

/// The thread that owns the app model and all that people see.
class MainThread {
 public:
  virtual ~MainThread() = default;

  /// Has `work` run on the main thread, after everything posted before. May be called from any
  /// thread and never waits.
  virtual void post(std::function<void()> work) = 0;
};

}  // namespace broomtide
