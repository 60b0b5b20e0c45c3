#pragma once

#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "context/GitSnapshot.h"
#include "core/Records.h"
#include "platform/FileManager.h"

namespace broomtide {

/// The checks that a candidate must pass again before it is moved. Each one asks the file system
/// afresh; Git's answers are those given at the start.
class Revalidation {
 public:
  using Problem = std::optional<std::string_view>;  ///< one of `messages`

  /// `root` is the scanned folder; `snapshots` are found by standardised repository root. All that
  /// is referred to must outlive the checks.
  Revalidation(FileManager& fileManager, const std::string& root,
               const std::map<std::string, GitSnapshot>& snapshots, std::stop_token stop)
      : fileManager_(fileManager), root_(root), snapshots_(snapshots), stop_(std::move(stop)) {}

  /// The first thing that is wrong with a candidate, nothing when it may be moved.
  Problem problemOf(const ScanCandidate& candidate) const;

  /// Whether a repository that nobody has asked lies around a candidate by now, up to the scanned
  /// folder: it may track the candidate. `folder` holds it, and `realRoot` is the scanned folder,
  /// both with symlinks resolved.
  Problem problemAround(const ScanCandidate& candidate, std::string folder,
                        const std::string& realRoot) const;

 private:
  Problem problemOnDisk(const ScanCandidate& candidate) const;
  Problem problemInContents(const ScanCandidate& candidate) const;
  Problem problemInGit(const ScanCandidate& candidate) const;

  FileManager& fileManager_;
  const std::string& root_;
  const std::map<std::string, GitSnapshot>& snapshots_;
  const std::stop_token stop_;
};

}  // namespace broomtide
