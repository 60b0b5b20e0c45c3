#include "cleanup/Revalidation.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>

#include "context/ContentsReader.h"
#include "context/GitCommand.h"
#include "core/Paths.h"
#include "core/ServiceInterfaces.h"
#include "platform/PathSafety.h"

namespace broomtide {
namespace {

// File systems and archives round dates, so that a date may differ by this much.
constexpr std::chrono::nanoseconds dateTolerance = std::chrono::milliseconds(1);

// A date that does not fit into `Date` is shown as the nearest one that does, so that it says
// nothing of what happened since.
bool isClamped(Date date) { return date == Date::max() || date == Date::min(); }

bool isModified(Date recorded, Date current) {
  if (isClamped(recorded) || isClamped(current)) return true;
  const auto nanoseconds = [](Date date) {
    return static_cast<std::uint64_t>(date.time_since_epoch().count());
  };
  // Unsigned, because the dates may lie further apart than a signed number tells.
  const std::uint64_t difference = recorded < current
                                       ? nanoseconds(current) - nanoseconds(recorded)
                                       : nanoseconds(recorded) - nanoseconds(current);
  return difference > static_cast<std::uint64_t>(dateTolerance.count());
}

// What lies in Downloads and in caches is offered and moved whatever repositories there are around
// it. Nothing but the reason for which it was offered tells it from what a scan of projects found.
bool isJudgedByGit(const ScanCandidate& candidate) {
  return std::ranges::none_of(candidate.evidence.lines(), [](const Message& reason) {
    return reason.pattern == messages::downloadsRule || reason.pattern == messages::cacheLocation;
  });
}

}  // namespace

Revalidation::Problem Revalidation::problemOf(const ScanCandidate& candidate) const {
  if (stop_.stop_requested()) return messages::cleanupCancelled;
  if (const Problem problem = problemOnDisk(candidate)) return problem;
  if (const Problem problem = problemInGit(candidate)) return problem;
  return problemInContents(candidate);
}

Revalidation::Problem Revalidation::problemOnDisk(const ScanCandidate& candidate) const {
  if (!PathSafety::contains(candidate.url, root_)) return messages::noLongerInside;
  FileAttributes attributes;
  if (fileManager_.readAttributes(workingDirectory, candidate.url.c_str(), LinkPolicy::doNotFollow,
                                  attributes)) {
    return messages::gone;
  }
  if (attributes.isLink()) return messages::becameLink;
  if (FileIdentity::token(attributes) != candidate.fileIdentity) return messages::replaced;
  const bool hasDates = candidate.modificationDate && attributes.modificationDate;
  if (hasDates && isModified(*candidate.modificationDate, *attributes.modificationDate)) {
    return messages::modified;
  }
  return std::nullopt;
}

// What was found in the scan is known to whoever has confirmed the item; what came since is not.
Revalidation::Problem Revalidation::problemInContents(const ScanCandidate& candidate) const {
  if (candidate.contentsPolicy == nullptr) return std::nullopt;
  FileDescriptor folder;
  if (fileManager_.openFolder(workingDirectory, candidate.url.c_str(), LinkPolicy::doNotFollow,
                              folder)) {
    return messages::replaced;
  }
  try {
    const Contents contents =
        readContents(fileManager_, std::move(folder), *candidate.contentsPolicy, stop_);
    const bool isSame = contents.fingerprint() == candidate.contentsFingerprint;
    return isSame ? std::nullopt : Problem(messages::contentsChanged);
  } catch (const CancellationError&) {
    return messages::cleanupCancelled;
  }
}

// The way is that of the item as it lies there, whatever symlinks lead to it. What came into the
// item itself is a matter of its contents.
Revalidation::Problem Revalidation::problemAround(const ScanCandidate& candidate,
                                                  std::string folder,
                                                  const std::string& realRoot) const {
  if (!isJudgedByGit(candidate)) return std::nullopt;
  const auto isAsked = [&](const std::string& root) {
    // Mostly the names alone tell, which costs no look at the disk.
    const bool isInside = root == root_ || paths::isBelow(root, root_);
    const bool isNamed = isInside && realRoot + root.substr(root_.size()) == folder;
    return isNamed || PathSafety::resolved(root) == folder;
  };
  for (;; folder = std::string(paths::enclosingFolder(folder))) {
    const bool isMarked = GitCommand::markOf(fileManager_, folder) != GitCommand::Mark::none;
    const bool isKnown = isMarked && ((candidate.gitRoot && isAsked(*candidate.gitRoot)) ||
                                      std::ranges::any_of(candidate.otherGitRoots, isAsked));
    if (isMarked && !isKnown) return messages::gitUnknown;
    if (!paths::isBelow(folder, realRoot)) return std::nullopt;
  }
}

Revalidation::Problem Revalidation::problemInGit(const ScanCandidate& candidate) const {
  const auto statusIn = [&](const std::string& root) {
    const auto found = snapshots_.find(paths::standardized(root));
    return found == snapshots_.end()
               ? GitItemStatus::unavailable
               : found->second.status(candidate.url, candidate.kind == CandidateKind::directory);
  };
  const std::string* gitRoot = candidate.gitRoot ? &*candidate.gitRoot : nullptr;
  const GitJudgement judged = statusAmong(gitRoot, candidate.otherGitRoots, statusIn);
  if (judged.status == GitItemStatus::tracked) return messages::nowTracked;
  if (!judged.hasRepository) return std::nullopt;
  if (judged.status == GitItemStatus::unavailable) return messages::gitUnknown;
  const bool wasIgnored = candidate.gitStatus == GitItemStatus::ignored;
  if (wasIgnored && judged.status != GitItemStatus::ignored) return messages::noLongerIgnored;
  return std::nullopt;
}

}  // namespace broomtide
