#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "cli/CandidateText.h"
#include "core/FileScanning.h"

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
void writeText(std::ostream& out, const ScanReport& report, const Style& style, Detail detail);

/// Writes the report for programs: one JSON document.
void writeJson(std::ostream& out, const ScanReport& report);

}  // namespace broomtide::cli
