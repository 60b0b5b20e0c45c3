#include "scanner/CandidateList.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/ScannerError.h"

namespace broomtide {

void CandidateList::report(std::int64_t entries, std::int64_t bytes, const std::string& label) {
  if (stop_.stop_requested()) throw CancellationError();
  onUpdate_({.entriesScanned = entries, .reclaimableBytes = bytes, .currentPath = label},
            candidates_, unchanged_);
  unchanged_ = candidates_.size();
}

void CandidateList::add(ScanCandidate candidate) {
  totalBytes_ += candidate.size;
  candidates_.push_back(std::move(candidate));
}

void CandidateList::sort() {
  // Candidates are large, so their positions are sorted and each one is moved once.
  std::vector<std::size_t> order(candidates_.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [this](std::size_t left, std::size_t right) {
    const ScanCandidate& a = candidates_[left];
    const ScanCandidate& b = candidates_[right];
    return a.safety != b.safety ? a.safety < b.safety : a.size > b.size;
  });
  std::vector<ScanCandidate> sorted;
  sorted.reserve(candidates_.size());
  for (const std::size_t position : order) sorted.push_back(std::move(candidates_[position]));
  candidates_ = std::move(sorted);
  unchanged_ = 0;
}

}  // namespace broomtide
