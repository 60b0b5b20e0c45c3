#pragma once

#include <vector>

#include "core/ScanCandidate.h"

namespace broomtide::cli {

/// How candidates of equal safety are ordered.
enum class SortOrder { size, name, date };

/// Sorts candidates within each safety level: the largest first, by relative path as file managers
/// do, or the oldest first with undated ones last. Equal ones keep their order.
void sortCandidates(std::vector<ScanCandidate>& candidates, SortOrder order);

}  // namespace broomtide::cli
