#include "core/SortOrder.h"

#include <algorithm>
#include <string>

#include "core/NameOrder.h"

namespace broomtide {
namespace {

void sortByName(CandidateRows& rows) {
  std::vector<std::string> names;
  names.reserve(rows.size());
  for (const ScanCandidate* candidate : rows) names.push_back(candidate->relativePath);
  CandidateRows sorted;
  sorted.reserve(rows.size());
  for (const std::size_t index : naturalOrder(names)) sorted.push_back(rows[index]);
  rows = std::move(sorted);
}

}  // namespace

CandidateRows rowsOf(const std::vector<ScanCandidate>& candidates) {
  CandidateRows rows;
  rows.reserve(candidates.size());
  for (const ScanCandidate& candidate : candidates) rows.push_back(&candidate);
  return rows;
}

void sortRows(CandidateRows& rows, SortOrder order) {
  switch (order) {
    case SortOrder::size:
      std::ranges::stable_sort(rows, std::ranges::greater(), &ScanCandidate::size);
      break;
    case SortOrder::name:
      sortByName(rows);
      break;
    case SortOrder::date:
      std::ranges::stable_sort(rows, {}, [](const ScanCandidate* candidate) {
        return candidate->modificationDate.value_or(Date::max());
      });
      break;
  }
  std::ranges::stable_sort(rows, {}, &ScanCandidate::safety);
}

}  // namespace broomtide
