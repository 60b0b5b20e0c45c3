#include "scanner/ScanReports.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <iterator>
#include <optional>
#include <thread>
#include <utility>

#include "core/ServiceInterfaces.h"
#include "core/SortOrder.h"
#include "platform/LinkedStopSource.h"

namespace broomtide {
namespace {

constexpr std::chrono::milliseconds maxDelay{5};

}  // namespace

void ScanReports::report(std::int64_t entries, std::int64_t bytes, Message label) {
  std::unique_lock lock(mutex_);
  if (waiting_.updates.size() >= maxWaiting) {
    urgent_.notify_one();
    taken_.wait(lock, stop_, [this] { return waiting_.updates.size() < maxWaiting; });
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
    urgent_.wait_for(lock, stop_, maxDelay,
                     [this] { return isClosed_ || waiting_.updates.size() >= maxWaiting; });
    if (stop_.stop_requested()) throw CancellationError();
  } while (waiting_.updates.empty() && !isClosed_);
  if (waiting_.updates.empty()) {
    if (failure_) std::rethrow_exception(failure_);
    return std::nullopt;
  }
  taken_.notify_one();
  return std::exchange(waiting_, {});
}

namespace {

// As they are shown first. Candidates are large, so each one is moved once.
std::vector<ScanCandidate> sorted(std::vector<ScanCandidate> candidates) {
  CandidateRows rows = rowsOf(candidates);
  sortRows(rows, SortOrder::size);
  std::vector<ScanCandidate> result;
  result.reserve(rows.size());
  for (const ScanCandidate* row : rows)
    result.push_back(std::move(candidates[static_cast<std::size_t>(row - candidates.data())]));
  return result;
}

}  // namespace

ScanResult runOnThread(
    const std::function<ScanOutcome(ScanReports& reports, const std::stop_token& stop)>& scan,
    const UpdateFunction& onUpdate, const std::stop_token& stop) {
  LinkedStopSource stopping(stop);
  ScanReports reports(stopping.token());
  ScanOutcome outcome;
  std::jthread scanning([&] {
    try {
      outcome = scan(reports, stopping.token());
      reports.close();
    } catch (...) {
      reports.close(std::current_exception());
    }
  });

  std::vector<ScanCandidate> candidates;
  try {
    while (std::optional<ScanReports::Batch> batch = reports.next()) {
      const std::size_t unchanged = candidates.size();
      std::ranges::move(batch->candidates, std::back_inserter(candidates));
      onUpdate(batch->updates, candidates, unchanged);
    }
  } catch (...) {
    stopping.requestStop();
    throw;
  }
  scanning.join();
  if (stop.stop_requested()) throw CancellationError();

  candidates = sorted(std::move(candidates));
  const ScanUpdate last{.progress = {.entriesScanned = outcome.entries,
                                     .reclaimableBytes = outcome.bytes,
                                     .currentPath = {messages::scanComplete}},
                        .candidateCount = candidates.size()};
  onUpdate({&last, 1}, candidates, 0);
  return {.candidates = std::move(candidates),
          .issues = std::move(outcome.issues),
          .projects = std::move(outcome.projects)};
}

}  // namespace broomtide
