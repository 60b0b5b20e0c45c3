#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

/// The report for people; `hasDetails` adds the reasons and the way back to every candidate.
std::string textReport(const ScanReport& report, const Style& style, bool hasDetails);

/// The report for programs: one JSON document.
std::string jsonReport(const ScanReport& report);

}  // namespace broomtide::cli
