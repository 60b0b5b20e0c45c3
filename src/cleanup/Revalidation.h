#pragma once

#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "context/GitSnapshot.h"
#include "core/ScanCandidate.h"
#include "platform/FileManager.h"

namespace broomtide {

/// Why an item was left alone, in words for people.
namespace CleanupMessages {

inline constexpr std::string_view cancelled = "Cleanup was cancelled.";
inline constexpr std::string_view outside = "The item is no longer inside the selected folder.";
inline constexpr std::string_view link = "The item changed into a symbolic link and was skipped.";
inline constexpr std::string_view gone =
    "This item no longer exists. It may have been moved or deleted.";
inline constexpr std::string_view replaced =
    "The item changed after the scan. Rescan before cleaning it.";
inline constexpr std::string_view modified =
    "The item was modified after the scan. Rescan before cleaning it.";
inline constexpr std::string_view gitUnknown =
    "Git status could not be revalidated. Broomtide left the item untouched.";
inline constexpr std::string_view tracked =
    "The item is now tracked by Git. Broomtide left it untouched.";
inline constexpr std::string_view notIgnored =
    "The item is no longer ignored by Git. Rescan before cleaning it.";
inline constexpr std::string_view notMoved =
    "Broomtide could not move this item to Trash. It may be locked, in use, or require additional "
    "permission.";

}  // namespace CleanupMessages

/// The checks that a candidate must pass again before it is moved. Each one asks the file system
/// afresh; Git's answers are those given at the start.
class Revalidation {
 public:
  using Problem = std::optional<std::string_view>;  ///< one of the messages above

  /// `root` is the scanned folder; `snapshots` are found by standardised repository root. All that
  /// is referred to must outlive the checks.
  Revalidation(FileManager& fileManager, const std::string& root,
               const std::map<std::string, GitSnapshot>& snapshots, std::stop_token stop)
      : fileManager_(fileManager), root_(root), snapshots_(snapshots), stop_(std::move(stop)) {}

  /// The first thing that is wrong with a candidate, nothing when it may be moved.
  Problem problemOf(const ScanCandidate& candidate) const;

 private:
  Problem problemOnDisk(const ScanCandidate& candidate) const;
  Problem problemInGit(const ScanCandidate& candidate) const;

  FileManager& fileManager_;
  const std::string& root_;
  const std::map<std::string, GitSnapshot>& snapshots_;
  const std::stop_token stop_;
};

}  // namespace broomtide
