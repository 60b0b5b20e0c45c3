#pragma once

#include <string>
#include <utility>

#include "core/FileScanning.h"

namespace broomtide::test {

/// A folder that a scan of /home/ada/src could find; safe, certain and ignored by Git.
inline ScanCandidate makeCandidate(const std::string& path, std::int64_t size = 1000,
                                   SafetyLevel safety = SafetyLevel::safe) {
  ScanCandidate candidate;
  candidate.url = "/home/ada/src/" + path;
  candidate.relativePath = path;
  candidate.kind = CandidateKind::directory;
  candidate.size = size;
  candidate.category = "Build Output";
  candidate.safety = safety;
  candidate.explanation = "Comes back with the next build.";
  candidate.confidence = DetectionConfidence::high;
  candidate.gitStatus = GitItemStatus::ignored;
  return candidate;
}

inline ScanResult resultOf(std::vector<ScanCandidate> candidates, std::size_t issueCount = 0) {
  ScanResult result{std::move(candidates), {}, {}};
  for (std::size_t number = 0; number < issueCount; ++number) {
    result.issues.push_back(
        ScanIssue::about("/home/ada/src/" + std::to_string(number), "Permission denied"));
  }
  return result;
}

}  // namespace broomtide::test
