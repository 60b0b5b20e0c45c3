#include "core/CleanupResult.h"

#include <numeric>

namespace broomtide {

std::int64_t CleanupResult::movedBytes() const {
  return std::accumulate(
      moved.begin(), moved.end(), std::int64_t{0},
      [](std::int64_t sum, const ScanCandidate& candidate) { return sum + candidate.size; });
}

}  // namespace broomtide
