#include "core/Records.h"

#include <numeric>
#include <utility>

#include "core/Paths.h"
#include "core/Uuid.h"

namespace broomtide {

ScanIssue ScanIssue::about(std::string path, std::string message) {
  return {.id = newUuid(), .path = std::move(path), .message = std::move(message)};
}

std::string ProjectContext::id() const { return paths::standardized(root); }

std::string ProjectContext::name() const { return std::string(paths::lastComponent(id())); }

std::string ProjectReclaimSummary::id() const { return paths::standardized(root); }

std::int64_t CleanupResult::movedBytes() const {
  return std::accumulate(
      moved.begin(), moved.end(), std::int64_t{0},
      [](std::int64_t sum, const ScanCandidate& candidate) { return sum + candidate.size; });
}

}  // namespace broomtide
