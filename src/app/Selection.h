#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "core/Records.h"

/// What a list of candidates comes to. Each function is one pass over the list.
namespace broomtide::Selection {

/// Whether a candidate is safe beyond doubt: safe, found with high confidence, and ignored by Git
/// or outside any repository.
bool isSafeBeyondDoubt(const ScanCandidate& candidate);

/// The selected candidates in their order.
std::vector<ScanCandidate> selected(std::span<const ScanCandidate> candidates);

/// What a list comes to, and the selected ones in it.
struct Totals {
  std::size_t selectedCount = 0;
  std::int64_t selectedBytes = 0;
  std::int64_t totalBytes = 0;
};
Totals totals(std::span<const ScanCandidate> candidates);

/// The totals of each project, selected or not: the largest first, equal ones by the bytes of their
/// root. Root and kinds are those of the project's first candidate.
std::vector<ProjectReclaimSummary> projectSummaries(std::span<const ScanCandidate> candidates);

}  // namespace broomtide::Selection
