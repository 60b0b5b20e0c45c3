#pragma once

#include <vector>

#include "core/CleanupResult.h"

namespace broomtide {

/// Keeps the completed cleanups.
class HistoryStoring {
 public:
  virtual ~HistoryStoring() = default;

  /// The entries that can be read, newest first. Never fails.
  virtual std::vector<CleanupHistoryEntry> load() noexcept = 0;

  /// Makes one more entry persistent. Throws std::system_error when that is not possible.
  virtual void append(const CleanupHistoryEntry& entry) = 0;
};

}  // namespace broomtide
