#include "scanner/ReportedScan.h"

#include <exception>
#include <iterator>
#include <optional>
#include <thread>
#include <utility>

#include "core/ScannerError.h"
#include "core/SortOrder.h"
#include "platform/LinkedStopSource.h"

namespace broomtide {
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

  candidates = sorted(std::move(candidates));
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
