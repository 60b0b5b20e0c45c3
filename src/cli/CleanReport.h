#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/CandidateText.h"
#include "core/CleanupResult.h"

namespace broomtide::cli {

/// A cleanup, or one that was only looked at, ready to be printed.
struct CleanReport {
  std::string root;     ///< the scanned folder, an absolute path
  bool isDryRun;        ///< nothing was moved; `moved` is what would have been
  CandidateRows moved;  ///< belongs to somebody else
  std::vector<CleanupFailure> failures;
  bool isRecorded;  ///< the cleanup is in the history
};

/// Writes the report for people: totals, and each item that was left alone with the reason.
void writeText(std::ostream& out, const CleanReport& report, const Style& style);

/// Writes the report for programs: one JSON document.
void writeJson(std::ostream& out, const CleanReport& report);

}  // namespace broomtide::cli
