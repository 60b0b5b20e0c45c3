#include "scanner/ReportedScan.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <numeric>
#include <optional>
#include <thread>
#include <utility>

#include "core/ScannerError.h"
#include "platform/LinkedStopSource.h"

namespace broomtide {
namespace {

// By safety, then the largest first; equal ones keep their order. Candidates are large, so their
// positions are sorted and each one is moved once.
void sort(std::vector<ScanCandidate>& candidates) {
  std::vector<std::size_t> order(candidates.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&candidates](std::size_t left, std::size_t right) {
    const ScanCandidate& a = candidates[left];
    const ScanCandidate& b = candidates[right];
    return a.safety != b.safety ? a.safety < b.safety : a.size > b.size;
  });
  std::vector<ScanCandidate> sorted;
  sorted.reserve(candidates.size());
  for (const std::size_t position : order) sorted.push_back(std::move(candidates[position]));
  candidates = std::move(sorted);
}

}  // namespace

ScanResult runReporting(
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

  sort(candidates);
  const ScanUpdate last{.progress = {.entriesScanned = outcome.entries,
                                     .reclaimableBytes = outcome.bytes,
                                     .currentPath = "Scan complete"},
                        .candidateCount = candidates.size()};
  onUpdate({&last, 1}, candidates, 0);
  return {.candidates = std::move(candidates),
          .issues = std::move(outcome.issues),
          .projects = std::move(outcome.projects)};
}

}  // namespace broomtide
