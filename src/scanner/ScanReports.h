#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "core/ServiceInterfaces.h"

namespace broomtide {

/// What a scan finds and reports, on its way from the thread that scans to the one that tells the
/// receiver. The scanning thread goes on while the receiver is told; what it reports meanwhile
/// waits and is told at once. Neither thread wakes the other up for a single report.
class ScanReports {
 public:
  /// Reports and candidates that follow those taken before.
  struct Batch {
    std::vector<ScanUpdate> updates;
    std::vector<ScanCandidate> candidates;
  };

  /// How many reports wait until the scanning thread does.
  static constexpr std::size_t maxWaiting = 512;

  explicit ScanReports(std::stop_token stop) : stop_(std::move(stop)) {}

  // For the scanning thread.

  /// The summed size of the candidates, in bytes.
  std::int64_t totalBytes() const { return totalBytes_; }

  /// Reports progress with the candidates found so far. Throws CancellationError instead once
  /// `stop` was asked to stop; blocks while too many reports wait.
  void report(std::int64_t entries, std::int64_t bytes, Message label);

  /// Adds a candidate, which belongs to the reports that follow; at least one must.
  void add(ScanCandidate candidate);

  /// Says that nothing more will come; `failure`, when there is one, is thrown by next() after the
  /// last report.
  void close(std::exception_ptr failure = nullptr);

  // For the thread that tells the receiver.

  /// Blocks until there is something, and a few milliseconds longer for what follows: what was
  /// reported since the last call, at most `maxWaiting` reports; nothing at the end. Throws
  /// CancellationError once `stop` was asked to stop.
  std::optional<Batch> next();

 private:
  const std::stop_token stop_;
  std::int64_t totalBytes_ = 0;
  std::size_t candidateCount_ = 0;
  std::vector<ScanCandidate> added_;  // since the last report

  std::mutex mutex_;
  std::condition_variable_any taken_;
  std::condition_variable_any urgent_;  // the end has come, or too much waits
  Batch waiting_;
  bool isClosed_ = false;
  std::exception_ptr failure_;
};

/// What the end of a scan leaves beside the candidates that it reported.
struct ScanOutcome {
  std::int64_t entries = 0;  ///< for the last update
  std::int64_t bytes = 0;    ///< for the last update
  std::vector<ScanIssue> issues;
  std::vector<ProjectContext> projects;
};

/// Runs `scan` on a thread of its own and tells `onUpdate`, on this thread, what it reports; at the
/// end once more, with the candidates sorted. Throws what either of them throws, and
/// CancellationError once `stop` is asked to stop; `scan` then has ended.
ScanResult runOnThread(
    const std::function<ScanOutcome(ScanReports& reports, const std::stop_token& stop)>& scan,
    const UpdateFunction& onUpdate, const std::stop_token& stop);

}  // namespace broomtide
