#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/CandidateList.h"
#include "cli/TerminalText.h"
#include "core/RecordJson.h"
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

template <typename Record>
const Record& recordOf(const Record& record) {
  return record;
}
template <typename Record>
const Record& recordOf(const Record* record) {
  return *record;
}

/// Writes records, or what pointers to records point to, as a JSON array, one on each line, which
/// is itself indented by `indent`.
template <typename Records>
void writeArray(std::ostream& out, const Records& records, std::string_view indent) {
  std::string_view separator = "[\n";
  for (const auto& record : records) {
    out << separator << indent << "  " << toJson(recordOf(record)).dump(-1, ' ', true);
    separator = ",\n";
  }
  if (records.empty()) {
    out << "[]";
  } else {
    out << '\n' << indent << ']';
  }
}

/// The same as one field of an object.
template <typename Records>
void writeField(std::ostream& out, std::string_view name, const Records& records) {
  out << "  \"" << name << "\": ";
  writeArray(out, records, "  ");
}

}  // namespace broomtide::cli
