#include "scanner/Measurement.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "core/Paths.h"
#include "core/ScannerError.h"

namespace broomtide {
namespace {

// The order of a depth-first walk with siblings by name: a slash sorts before every other byte.
bool comesFirst(std::string_view left, std::string_view right) {
  const auto rank = [](char byte) { return byte == '/' ? 0 : static_cast<unsigned char>(byte); };
  return std::ranges::lexicographical_compare(left, right, {}, rank, rank);
}

}  // namespace

Measurement::Result Measurement::await(const std::stop_token& stop,
                                       const ProgressFunction& onProgress) {
  std::unique_lock lock(mutex_);
  isAwaited_ = true;
  std::size_t reported = 0;
  for (;;) {
    changed_.wait(lock, stop, [&] {
      return reported < bytesAtIntervals_.size() || partsUnderWay_ == 0 || failure_;
    });
    if (stop.stop_requested()) throw CancellationError();
    if (failure_) std::rethrow_exception(failure_);
    if (reported == bytesAtIntervals_.size()) break;
    const std::int64_t bytes = bytesAtIntervals_[reported++];
    lock.unlock();
    onProgress(bytes, static_cast<std::int64_t>(reported) * progressInterval);
    lock.lock();
  }
  lock.unlock();
  onProgress(bytes_, entries_);
  return {.bytes = bytes_, .entries = entries_, .issues = issuesInOrder()};
}

void Measurement::beginPart() {
  const std::scoped_lock lock(mutex_);
  ++partsUnderWay_;
}

void Measurement::endPart() {
  const std::scoped_lock lock(mutex_);
  --partsUnderWay_;
  if (partsUnderWay_ == 0 && isAwaited_) changed_.notify_all();
}

void Measurement::fail(std::exception_ptr failure) {
  const std::scoped_lock lock(mutex_);
  failure_ = std::move(failure);
  changed_.notify_all();
}

void Measurement::add(std::int64_t bytes, std::int64_t entries) {
  const std::scoped_lock lock(mutex_);
  const std::int64_t intervals = entries_ / progressInterval;
  bytes_ += bytes;
  entries_ += entries;
  if (entries_ / progressInterval == intervals) return;
  bytesAtIntervals_.push_back(bytes_);
  if (isAwaited_) changed_.notify_all();
}

void Measurement::addIssue(std::string relativePath, std::error_code error) {
  const std::scoped_lock lock(mutex_);
  problems_.push_back({std::move(relativePath), error});
}

std::vector<ScanIssue> Measurement::issuesInOrder() {
  std::ranges::stable_sort(problems_, comesFirst, &Problem::relativePath);
  std::vector<ScanIssue> issues;
  issues.reserve(problems_.size());
  for (const Problem& problem : problems_) {
    const std::string path =
        problem.relativePath.empty() ? path_ : paths::appending(path_, problem.relativePath);
    issues.push_back(ScanIssue::about(path, problem.error.message()));
  }
  return issues;
}

}  // namespace broomtide
