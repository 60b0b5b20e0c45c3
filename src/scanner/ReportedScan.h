#pragma once

#include <cstdint>
#include <functional>
#include <stop_token>
#include <vector>

#include "core/FileScanning.h"
#include "scanner/ScanReports.h"

namespace broomtide {

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
ScanResult runReporting(
    const std::function<ScanOutcome(ScanReports& reports, const std::stop_token& stop)>& scan,
    const UpdateFunction& onUpdate, const std::stop_token& stop);

}  // namespace broomtide
