#pragma once

#include <span>
#include <vector>

#include "core/ScanCandidate.h"

namespace broomtide {

/// Candidates as they are shown, one after the other; they belong to somebody else.
using CandidateRows = std::vector<const ScanCandidate*>;

/// All of these candidates, in their order. They must outlive the rows.
CandidateRows rowsOf(std::span<const ScanCandidate> candidates);

/// How candidates of equal safety are ordered.
enum class SortOrder { size, name, date };

/// Sorts candidates within each safety level: the largest first, by relative path as file managers
/// do, or the oldest first with undated ones last. Equal ones keep their order.
void sortRows(CandidateRows& rows, SortOrder order);

}  // namespace broomtide
