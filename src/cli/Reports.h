#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "cli/CandidateList.h"
#include "cli/TerminalText.h"
#include "core/Records.h"
#include "core/ServiceInterfaces.h"

namespace broomtide::cli {

/// A finished scan, ready to be printed; the records belong to the app model.
struct ScanReport {
  ScanMode mode;
  std::string root;             ///< the scanned folder, an absolute path
  std::int64_t entriesScanned;  ///< as the last update told
  CandidateRows candidates;     ///< sorted by safety
  const std::vector<ScanIssue>& issues;
  const std::vector<ProjectContext>& projects;
};

/// Writes the report for people.
void writeText(std::ostream& out, const ScanReport& report, const TerminalStyle& style,
               Detail detail);

/// Writes the report for programs: one JSON document.
void writeJson(std::ostream& out, const ScanReport& report);

/// A cleanup, or one that was only looked at, ready to be printed.
struct CleanReport {
  std::string root;     ///< the scanned folder, an absolute path
  bool isDryRun;        ///< nothing was moved; `moved` is what would have been
  CandidateRows moved;  ///< belongs to somebody else
  std::vector<CleanupFailure> failures;
  bool isRecorded;  ///< the cleanup is in the history
};

/// Writes the report for people: totals, and each item that was left alone with the reason.
void writeText(std::ostream& out, const CleanReport& report, const TerminalStyle& style);

/// Writes the report for programs: one JSON document.
void writeJson(std::ostream& out, const CleanReport& report);

/// Writes the history for people, one line for each cleanup, in the order given.
void writeText(std::ostream& out, const std::vector<CleanupHistoryEntry>& entries,
               const TerminalStyle& style);

/// Writes the history for programs: one JSON array, in the order given.
void writeJson(std::ostream& out, const std::vector<CleanupHistoryEntry>& entries);

}  // namespace broomtide::cli
