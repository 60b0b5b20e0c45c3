#include "scanner/Measurement.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

#include "core/Paths.h"
#include "core/ServiceInterfaces.h"

namespace broomtide {
namespace {

constexpr std::chrono::milliseconds maxSilence{5};

}  // namespace

// Waits a few milliseconds for the condition, or for a failure, and returns whether it holds.
// Throws the failure, and CancellationError once `stop` is asked to stop.
template <typename Condition>
bool Measurement::waitBriefly(std::unique_lock<std::mutex>& lock, const std::stop_token& stop,
                              Condition condition) {
  changed_.wait_for(lock, maxSilence, [&] { return condition() || failure_; });
  if (stop.stop_requested()) throw CancellationError();
  if (failure_) std::rethrow_exception(failure_);
  return condition();
}

Measurement::Folder Measurement::awaitFolder(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  while (!waitBriefly(lock, stop, [this] { return folder_.has_value(); })) {
  }
  return *folder_;
}

Measurement::Result Measurement::await(const std::string& location, const std::stop_token& stop,
                                       const ProgressFunction& onProgress) {
  bool hasEnded = false;
  while (!hasEnded) {
    std::unique_lock lock(mutex_);
    // Being woken up for every interval would cost the threads that measure much of their time.
    hasEnded = waitBriefly(lock, stop, [this] { return partsUnderWay_ == 0; });
    const std::vector<Interval> passed = std::exchange(intervals_, {});
    lock.unlock();
    for (const Interval& interval : passed) onProgress(interval.bytes, interval.entries);
  }
  onProgress(bytes_, entries_);
  return {.bytes = bytes_,
          .entries = entries_,
          .issues = issuesInOrder(location),
          .contents = std::move(contents_)};
}

void Measurement::setFolder(const Folder& folder) {
  const std::scoped_lock lock(mutex_);
  folder_ = folder;
  changed_.notify_all();
}

void Measurement::beginPart() {
  const std::scoped_lock lock(mutex_);
  ++partsUnderWay_;
}

void Measurement::endPart() {
  const std::scoped_lock lock(mutex_);
  --partsUnderWay_;
  if (partsUnderWay_ == 0) changed_.notify_all();
}

void Measurement::fail(std::exception_ptr failure) {
  const std::scoped_lock lock(mutex_);
  failure_ = std::move(failure);
  changed_.notify_all();
}

void Measurement::add(std::int64_t bytes, std::int64_t entries, IntervalEnd end) {
  const std::scoped_lock lock(mutex_);
  const std::int64_t before = entries_ / progressInterval;
  bytes_ += bytes;
  entries_ += entries;
  const std::int64_t intervals = entries_ / progressInterval;
  if (intervals == before || end == IntervalEnd::silent) return;
  intervals_.push_back({bytes_, intervals * progressInterval});
}

void Measurement::addSign(Sign sign, std::string_view relativePath) {
  const std::scoped_lock lock(mutex_);
  contents_.add(sign, relativePath);
}

void Measurement::addIssue(std::string relativePath, std::error_code error) {
  const std::scoped_lock lock(mutex_);
  problems_.push_back({std::move(relativePath), error});
}

std::vector<ScanIssue> Measurement::issuesInOrder(const std::string& location) {
  std::ranges::stable_sort(problems_, comesFirstInWalk, &Problem::relativePath);
  std::vector<ScanIssue> issues;
  issues.reserve(problems_.size());
  for (const Problem& problem : problems_) {
    const std::string path =
        problem.relativePath.empty() ? location : paths::appending(location, problem.relativePath);
    issues.push_back(ScanIssue::about(path, problem.error.message()));
  }
  return issues;
}

}  // namespace broomtide
