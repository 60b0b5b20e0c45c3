#include "core/SortOrder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "core/NameOrder.h"

namespace broomtide {
namespace {

// What decides about a row, kept together: candidates lie far apart in memory.
struct RankedRow {
  SafetyLevel safety;
  std::int64_t rank;
  const ScanCandidate* candidate;

  bool operator<(const RankedRow& other) const {
    return safety == other.safety ? rank < other.rank : safety < other.safety;
  }
};

std::int64_t rankOf(const ScanCandidate& candidate, SortOrder order) {
  switch (order) {
    case SortOrder::size:
      return ~candidate.size;  // turns the order around, and never overflows
    case SortOrder::date:
      return candidate.modificationDate.value_or(Date::max()).time_since_epoch().count();
    case SortOrder::name:
      break;
  }
  return 0;
}

void sortByName(CandidateRows& rows) {
  std::vector<std::string_view> names;
  names.reserve(rows.size());
  for (const ScanCandidate* candidate : rows) names.push_back(candidate->relativePath);
  CandidateRows sorted;
  sorted.reserve(rows.size());
  for (const std::size_t index : naturalOrder(names)) sorted.push_back(rows[index]);
  rows = std::move(sorted);
}

}  // namespace

CandidateRows rowsOf(std::span<const ScanCandidate> candidates) {
  CandidateRows rows;
  rows.reserve(candidates.size());
  for (const ScanCandidate& candidate : candidates) rows.push_back(&candidate);
  return rows;
}

void sortRows(CandidateRows& rows, SortOrder order) {
  if (order == SortOrder::name) sortByName(rows);
  std::vector<RankedRow> entries;
  entries.reserve(rows.size());
  for (const ScanCandidate* candidate : rows) {
    entries.push_back({candidate->safety, rankOf(*candidate, order), candidate});
  }
  std::stable_sort(entries.begin(), entries.end());
  std::ranges::transform(entries, rows.begin(), &RankedRow::candidate);
}

}  // namespace broomtide
