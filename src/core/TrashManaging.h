#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "core/CleanupResult.h"

namespace broomtide {

/// Moves candidates to the Trash after checking each one again.
class TrashManaging {
 public:
  virtual ~TrashManaging() = default;

  /// Handles the candidates in their order and blocks until all are done; call it from a worker
  /// thread. `root` is the scanned folder. Never throws: whatever keeps an item from being moved
  /// becomes a failure in the result. After `stop` was asked to stop, the remaining items are left
  /// alone.
  virtual CleanupResult moveToTrash(const std::vector<ScanCandidate>& candidates,
                                    const std::string& root, std::stop_token stop) noexcept = 0;
};

}  // namespace broomtide
