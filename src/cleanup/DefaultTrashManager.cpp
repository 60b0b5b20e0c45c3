#include "cleanup/DefaultTrashManager.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "cleanup/Revalidation.h"
#include "core/Paths.h"
#include "core/Uuid.h"
#include "platform/FilesInUse.h"
#include "platform/PathSafety.h"
#include "trash/Trash.h"

namespace broomtide {
namespace {

// Checks a candidate and moves it. What is wrong, or nothing when it is in the Trash. `realRoot` is
// the scanned folder, symlinks resolved.
std::optional<Message> clean(const ScanCandidate& candidate, const std::string& realRoot,
                             const Revalidation& revalidation, const FilesInUse& filesInUse,
                             Trash& trash) {
  if (const auto problem = revalidation.problemOf(candidate)) return Message{*problem};

  // The place is resolved once more and then opened without following any symlink, so that nothing
  // outside the folder can be reached whatever is replaced by a symlink meanwhile.
  const std::string place = paths::standardized(candidate.url);
  const TrashItem item{.folder = PathSafety::resolved(paths::enclosingFolder(place)),
                       .name = std::string(paths::lastComponent(place)),
                       .identity = candidate.fileIdentity,
                       .size = candidate.size,
                       .isFolder = candidate.kind == CandidateKind::directory};
  const std::string path = paths::appending(item.folder, item.name);
  if (!paths::isBelow(path, realRoot)) return Message{messages::noLongerInside};
  if (const auto problem = revalidation.problemAround(candidate, item.folder, realRoot)) {
    return Message{*problem};
  }
  if (const auto user = filesInUse.userOf(path, item.identity)) {
    return Message{messages::inUse, {nameValue(user->name), nameValue(user->id)}};
  }
  if (trash.move(item)) return Message{messages::notMoved};
  return std::nullopt;
}

}  // namespace

DefaultTrashManager::DefaultTrashManager(FileManager& fileManager, GitFunction inspectGit,
                                         std::optional<std::string> homeTrash)
    : fileManager_(fileManager),
      inspectGit_(std::move(inspectGit)),
      homeTrash_(std::move(homeTrash)) {}

CleanupResult DefaultTrashManager::moveToTrash(const std::vector<ScanCandidate>& candidates,
                                               const std::string& root,
                                               std::stop_token stop) noexcept {
  const std::lock_guard lock(oneAtATime_);
  const std::map<std::string, GitSnapshot> snapshots = askGit(candidates, stop);
  const Revalidation revalidation(fileManager_, root, snapshots, stop);
  const std::string realRoot = PathSafety::resolved(root);
  const FilesInUse filesInUse = FilesInUse::now();
  Trash trash(fileManager_, homeTrash_);
  CleanupResult result;
  for (const ScanCandidate& candidate : candidates) {
    if (auto problem = clean(candidate, realRoot, revalidation, filesInUse, trash)) {
      result.failures.push_back(
          {.id = newUuid(), .path = candidate.relativePath, .message = *std::move(problem)});
    } else {
      result.moved.push_back(candidate);
    }
  }
  trash.recordSizes();
  return result;
}

// Without an answer from Git, only candidates outside any repository can pass.
std::map<std::string, GitSnapshot> DefaultTrashManager::askGit(
    const std::vector<ScanCandidate>& candidates, const std::stop_token& stop) const {
  std::vector<std::string> roots;
  for (const ScanCandidate& candidate : candidates) {
    if (candidate.gitRoot) roots.push_back(*candidate.gitRoot);
    std::ranges::copy(candidate.otherGitRoots, std::back_inserter(roots));
  }
  std::ranges::sort(roots);
  roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
  try {
    return inspectGit_(roots, stop);
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace broomtide
