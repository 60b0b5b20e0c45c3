#include "scanner/ScanReports.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "core/ScannerError.h"

namespace broomtide {
namespace {

constexpr std::chrono::milliseconds longestDelay{5};

}  // namespace

void ScanReports::report(std::int64_t entries, std::int64_t bytes, std::string label) {
  std::unique_lock lock(mutex_);
  if (waiting_.updates.size() >= mostWaiting) {
    urgent_.notify_one();
    taken_.wait(lock, stop_, [this] { return waiting_.updates.size() < mostWaiting; });
  }
  if (stop_.stop_requested()) throw CancellationError();
  std::ranges::move(added_, std::back_inserter(waiting_.candidates));
  added_.clear();
  waiting_.updates.push_back({.progress = {.entriesScanned = entries,
                                           .reclaimableBytes = bytes,
                                           .currentPath = std::move(label)},
                              .candidateCount = candidateCount_});
}

void ScanReports::add(ScanCandidate candidate) {
  totalBytes_ += candidate.size;
  ++candidateCount_;
  added_.push_back(std::move(candidate));
}

void ScanReports::close(std::exception_ptr failure) {
  const std::scoped_lock lock(mutex_);
  isClosed_ = true;
  failure_ = std::move(failure);
  urgent_.notify_one();
}

std::optional<ScanReports::Batch> ScanReports::next() {
  std::unique_lock lock(mutex_);
  do {
    urgent_.wait_for(lock, stop_, longestDelay,
                     [this] { return isClosed_ || waiting_.updates.size() >= mostWaiting; });
    if (stop_.stop_requested()) throw CancellationError();
  } while (waiting_.updates.empty() && !isClosed_);
  if (waiting_.updates.empty()) {
    if (failure_) std::rethrow_exception(failure_);
    return std::nullopt;
  }
  taken_.notify_one();
  return std::exchange(waiting_, {});
}

}  // namespace broomtide
