#include "app/Selection.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "core/Paths.h"

namespace broomtide::Selection {
namespace {

// Gives each project its place in the order of appearance. Most roots come many times in the same
// spelling, which are then told apart without standardising each.
class ProjectPlaces {
 public:
  std::size_t placeOf(std::string_view root) {
    const auto [spelling, isNew] = bySpelling_.try_emplace(root, 0);
    if (isNew) {
      spelling->second =
          byPath_.try_emplace(paths::standardized(root), byPath_.size()).first->second;
    }
    return spelling->second;
  }

 private:
  std::unordered_map<std::string_view, std::size_t> bySpelling_;
  std::unordered_map<std::string, std::size_t> byPath_;
};

void add(const ScanCandidate& candidate, ProjectReclaimSummary& summary) {
  summary.candidateCount += 1;
  summary.reclaimableBytes += candidate.size;
  summary.newestArtifactDate = std::max(summary.newestArtifactDate, candidate.modificationDate);
}

bool comesBefore(const ProjectReclaimSummary& left, const ProjectReclaimSummary& right) {
  return std::tie(right.reclaimableBytes, left.root) < std::tie(left.reclaimableBytes, right.root);
}

}  // namespace

bool isSafeBeyondDoubt(const ScanCandidate& candidate) {
  if (candidate.safety != SafetyLevel::safe) return false;
  if (candidate.confidence != DetectionConfidence::high) return false;
  switch (candidate.gitStatus) {
    case GitItemStatus::ignored:
      return true;
    case GitItemStatus::unavailable:
      return !candidate.gitRoot;
    case GitItemStatus::tracked:
    case GitItemStatus::untracked:
      break;
  }
  return false;
}

std::vector<ScanCandidate> selected(std::span<const ScanCandidate> candidates) {
  std::vector<ScanCandidate> result;
  std::ranges::copy_if(candidates, std::back_inserter(result), &ScanCandidate::isSelected);
  return result;
}

Totals totals(std::span<const ScanCandidate> candidates) {
  Totals totals;
  for (const ScanCandidate& candidate : candidates) {
    totals.totalBytes += candidate.size;
    if (!candidate.isSelected) continue;
    totals.selectedBytes += candidate.size;
    totals.selectedCount += 1;
  }
  return totals;
}

std::vector<ProjectReclaimSummary> projectSummaries(std::span<const ScanCandidate> candidates) {
  ProjectPlaces places;
  std::vector<ProjectReclaimSummary> summaries;
  for (const ScanCandidate& candidate : candidates) {
    if (!candidate.projectRoot) continue;
    const std::size_t place = places.placeOf(*candidate.projectRoot);
    if (place == summaries.size()) {
      summaries.push_back({.root = *candidate.projectRoot, .kinds = candidate.projectKinds});
    }
    add(candidate, summaries[place]);
  }
  std::ranges::stable_sort(summaries, comesBefore);
  return summaries;
}

}  // namespace broomtide::Selection
