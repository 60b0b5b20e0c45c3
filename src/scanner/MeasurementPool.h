#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "platform/FileManager.h"
#include "platform/LinkedStopSource.h"
#include "scanner/Measurement.h"

namespace broomtide {

/// Threads that open, identify and measure folders: the folders in the order in which they were
/// handed in, and when there are fewer folders than threads, several threads share one.
class MeasurementPool {
 public:
  /// Measures what is below the open folder `top`, with `threads` threads, started with the first
  /// folder. They end early once `stop` is asked to stop; no measurement is finished then.
  MeasurementPool(FileManager& fileManager, FileDescriptor top, std::size_t threads,
                  std::stop_token stop);

  /// Stops measuring and waits for the threads.
  ~MeasurementPool();

  MeasurementPool(const MeasurementPool&) = delete;
  MeasurementPool& operator=(const MeasurementPool&) = delete;

  /// Has a folder measured, from start() on; `path` leads there from the top, with no symlink on
  /// the way, and `policy` says what counts in it. Folders come from one thread. Handing over
  /// several together costs that thread less than each on its own.
  std::shared_ptr<Measurement> measure(std::string path, const ContentsPolicy& policy);

  /// Starts what was given to measure(), from the same thread, to which the threads leave a
  /// processor until finish().
  void start();

  /// Starts the rest and says that no more will come, so that all threads can measure.
  void finish();

 private:
  class Worker;

  // A folder to be added to a measurement: the whole folder, still to be opened, or an open one
  // below it.
  struct Part {
    std::shared_ptr<Measurement> measurement;
    std::string pathFromTop;  // of a whole folder
    FileDescriptor folder;
    std::string path;  // of a folder below it, from there
  };

  void startThreads(std::size_t count);
  std::optional<Part> take(const std::stop_token& stop);
  void give(Part part);
  void updateIdle();
  bool hasIdleThread() const { return hasIdleThread_.load(std::memory_order_relaxed); }

  FileManager& fileManager_;
  const FileDescriptor top_;
  const std::size_t threadCount_;
  const std::size_t threadsBeside_;  // while folders are still handed in
  std::vector<Part> collected_;      // not handed over yet

  std::mutex mutex_;
  std::condition_variable_any added_;
  std::deque<Part> folders_;
  std::vector<Part> subtrees_;  // given away by threads with more to do than the idle ones
  std::size_t idleThreads_ = 0;
  std::atomic<bool> hasIdleThread_ = false;  // some thread waits and nothing is waiting for it

  LinkedStopSource stopping_;
  std::vector<std::jthread> threads_;
};

}  // namespace broomtide
