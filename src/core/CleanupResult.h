#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Date.h"
#include "core/ScanCandidate.h"

namespace broomtide {

/// One candidate that a cleanup did not move.
struct CleanupFailure {
  std::string id;       ///< a UUID
  std::string path;     ///< the candidate's relative path
  std::string message;  ///< the reason that people read

  bool operator==(const CleanupFailure&) const = default;
};

/// What a cleanup did with each of its candidates.
struct CleanupResult {
  std::vector<ScanCandidate> moved;  ///< what went to the Trash
  std::vector<CleanupFailure> failures;

  /// The summed size of what was moved, in bytes.
  std::int64_t movedBytes() const;

  bool operator==(const CleanupResult&) const = default;
};

/// One completed cleanup, as the history keeps it.
struct CleanupHistoryEntry {
  std::string id;        ///< a UUID
  Date date;             ///< when the cleanup finished
  std::string rootPath;  ///< the scanned folder, an absolute path
  std::int64_t movedCount = 0;
  std::int64_t movedBytes = 0;
  std::vector<CleanupFailure> failures;

  bool operator==(const CleanupHistoryEntry&) const = default;
};

}  // namespace broomtide
