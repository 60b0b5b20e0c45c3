#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "cli/TerminalText.h"
#include "core/FileScanning.h"

namespace broomtide::cli {

/// A finished scan, ready to be printed.
struct ScanReport {
  ScanMode mode;
  std::string root;             ///< the scanned folder, an absolute path
  std::int64_t entriesScanned;  ///< as the last update told
  ScanResult result;

  std::int64_t reclaimableBytes() const;
};

/// Writes the report for people; `hasDetails` adds the reasons and the way back to every candidate.
void writeText(std::ostream& out, const ScanReport& report, const Style& style, bool hasDetails);

/// Writes the report for programs: one JSON document.
void writeJson(std::ostream& out, const ScanReport& report);

}  // namespace broomtide::cli
