#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

#include "app/Surroundings.h"
#include "core/ServiceInterfaces.h"
#include "scanner/ScanReports.h"

/// Services of an app model that touch no file.
namespace broomtide::bench {

/// The same candidates each time, like those of a folder with many projects.
inline std::vector<ScanCandidate> makeCandidates(std::size_t count) {
  std::mt19937 random(7);
  std::vector<ScanCandidate> candidates(count);
  for (std::size_t number = 0; number < count; ++number) {
    ScanCandidate& candidate = candidates[number];
    const std::string project = "clients/acme-" + std::to_string(random() % 2000);
    candidate.relativePath =
        project + "/services/api-" + std::to_string(number) + "/node_modules/.cache";
    candidate.url = "/home/somebody/src/" + candidate.relativePath;
    candidate.kind = CandidateKind::directory;
    candidate.size = static_cast<std::int64_t>(random());
    candidate.modificationDate = Date(std::chrono::seconds(1'700'000'000 + random() % 50'000'000));
    candidate.category = "Dependencies";
    candidate.safety = allSafetyLevels[random() % allSafetyLevels.size()];
    candidate.explanation = "Installed packages, which come back with one command.";
    candidate.fileIdentity = "64768-" + std::to_string(number) + "-40000";
    candidate.projectRoot = "/home/somebody/src/" + project;
    candidate.gitRoot = candidate.projectRoot;
    candidate.projectKinds = {ProjectKind::javascript};
    candidate.evidence = {bareName("package.json is in the same folder"),
                          bareName("Git ignores this folder")};
    candidate.regenerationCommand = Message{"npm ci"};
    candidate.confidence = DetectionConfidence::high;
    candidate.gitStatus = GitItemStatus::ignored;
  }
  return candidates;
}

/// Finds so many candidates and tells of them in so many updates, as many together as a scan does
/// at most.
class GivenScanner final : public FileScanning {
 public:
  GivenScanner(std::size_t count, std::size_t updates) : count_(count), updates_(updates) {}

  ScanResult scan(const std::string&, ScanMode, Date, const UpdateFunction& onUpdate,
                  std::stop_token) override {
    ScanResult result;
    result.candidates = makeCandidates(count_);
    std::size_t known = 0;
    std::vector<ScanUpdate> waiting;
    for (std::size_t update = 1; update <= updates_; ++update) {
      const std::size_t found = count_ * update / updates_;
      waiting.push_back(
          {.progress = {.entriesScanned = static_cast<std::int64_t>(found) * 10,
                        .reclaimableBytes = static_cast<std::int64_t>(found),
                        .currentPath = bareName(result.candidates[found - 1].relativePath)},
           .candidateCount = found});
      if (waiting.size() < ScanReports::maxWaiting && update < updates_) continue;
      onUpdate(waiting, std::span(result.candidates).first(found), known);
      known = found;
      waiting.clear();
    }
    return result;
  }

 private:
  std::size_t count_;
  std::size_t updates_;
};

/// Moves nothing.
class NoTrash final : public TrashManaging {
 public:
  CleanupResult moveToTrash(const std::vector<ScanCandidate>&, const std::string&,
                            std::stop_token) noexcept override {
    return {};
  }
};

/// Remembers nothing.
class NoHistory final : public HistoryStoring {
 public:
  std::vector<CleanupHistoryEntry> load() noexcept override { return {}; }
  void append(const CleanupHistoryEntry&) override {}
};

/// Picks nothing.
class NoPicker final : public FolderPicking {
 public:
  std::optional<std::string> pickFolder(const FolderRequest&) override { return std::nullopt; }
};

}  // namespace broomtide::bench
