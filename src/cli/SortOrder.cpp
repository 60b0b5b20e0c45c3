#include "cli/SortOrder.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <utility>

#include "cli/NameOrder.h"

namespace broomtide::cli {
namespace {

// The place that the wanted order gives to each candidate, whatever its safety.
std::vector<std::size_t> places(const std::vector<ScanCandidate>& candidates, SortOrder order) {
  std::vector<std::size_t> sequence(candidates.size());
  std::iota(sequence.begin(), sequence.end(), std::size_t{0});
  if (order == SortOrder::size) {
    std::ranges::stable_sort(sequence, std::ranges::greater{},
                             [&](std::size_t index) { return candidates[index].size; });
  } else if (order == SortOrder::date) {
    std::ranges::stable_sort(sequence, {}, [&](std::size_t index) {
      return candidates[index].modificationDate.value_or(Date::max());
    });
  } else {
    std::vector<std::string> names;
    names.reserve(candidates.size());
    for (const ScanCandidate& candidate : candidates) names.push_back(candidate.relativePath);
    sequence = naturalOrder(names);
  }
  std::vector<std::size_t> result(candidates.size());
  for (std::size_t place = 0; place < sequence.size(); ++place) result[sequence[place]] = place;
  return result;
}

}  // namespace

void sortCandidates(std::vector<ScanCandidate>& candidates, SortOrder order) {
  const std::vector<std::size_t> place = places(candidates, order);
  std::vector<std::size_t> sequence(candidates.size());
  std::iota(sequence.begin(), sequence.end(), std::size_t{0});
  std::ranges::sort(sequence, {}, [&](std::size_t index) {
    return std::pair(candidates[index].safety, place[index]);
  });
  std::vector<ScanCandidate> sorted;
  sorted.reserve(candidates.size());
  for (const std::size_t index : sequence) sorted.push_back(std::move(candidates[index]));
  candidates = std::move(sorted);
}

}  // namespace broomtide::cli
