#include "context/GitInspection.h"

#include <algorithm>
#include <new>
#include <utility>

#include "core/Paths.h"
#include "platform/Confinement.h"
#include "platform/FileManager.h"
#include "platform/PathSafety.h"

namespace broomtide {
namespace {

std::size_t mostThreads() {
  return std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 4);
}

}  // namespace

GitInspection::GitInspection(std::optional<std::string> git, std::chrono::milliseconds limit,
                             std::stop_token stop)
    : git_(std::move(git)), limit_(limit), stopping_(std::move(stop)) {}

GitInspection::~GitInspection() { stopping_.requestStop(); }

void GitInspection::add(const std::string& root) {
  using enum GitInspector::Listing;
  const std::string key = paths::standardized(root);
  const bool isRoot = GitInspector::isRepository(systemFileManager(), root);
  const std::scoped_lock lock(mutex_);
  const auto [place, isNew] = repositories_.try_emplace(key);
  if (!isNew) return;
  place->second.snapshot = std::make_shared<GitSnapshot>();
  place->second.snapshot->root = root;
  place->second.listingsLeft = isRoot ? 2 : 1;
  runs_.push_back(
      {key, tracked, isRoot ? GitInspector::Asked::own : GitInspector::Asked::enclosing});
  if (isRoot) runs_.push_back({key, ignored, GitInspector::Asked::own});
  runAdded_.notify_all();
  if (threads_.size() < mostThreads()) {
    threads_.emplace_back([this] { work(stopping_.token()); });
  }
}

std::shared_ptr<const GitSnapshot> GitInspection::snapshot(const std::string& root) {
  std::unique_lock lock(mutex_);
  const auto found = repositories_.find(paths::standardized(root));
  if (found == repositories_.end()) return nullptr;
  const Repository& repository = found->second;
  const bool isReady = snapshotReady_.wait(lock, stopping_.token(),
                                           [&repository] { return repository.listingsLeft == 0; });
  return isReady ? repository.snapshot : nullptr;
}

void GitInspection::work(const std::stop_token& stop) {
  if (git_) Confinement::confineThread(*git_);
  for (;;) {
    Run run;
    {
      std::unique_lock lock(mutex_);
      runAdded_.wait(lock, stop, [this] { return !runs_.empty(); });
      if (stop.stop_requested()) return;
      run = std::move(runs_.front());
      runs_.pop_front();
    }
    finish(run, hasFailed(run.key) ? std::nullopt : list(run, stop));
  }
}

std::optional<PathSet> GitInspection::list(const Run& run, const std::stop_token& stop) const {
  if (!git_) return std::nullopt;
  try {
    // To a repository a link in it is an entry, and leads nowhere.
    const bool isRoot = run.asked == GitInspector::Asked::own;
    const std::string folder = isRoot ? run.key : PathSafety::resolved(run.key);
    std::optional<ChildProcess::Output> output =
        ChildProcess::run(GitInspector::listingCommand(*git_, folder, run.listing, run.asked),
                          {.time = limit_, .idleTime = GitInspector::idleLimit}, stop);
    if (!output || GitInspector::tellsOfFailure(output->errors)) return std::nullopt;
    const bool isOfIndex = run.listing == GitInspector::Listing::tracked;
    const bool isBelievable = isOfIndex ? GitInspector::isListingOfIndex(output->text)
                                        : GitInspector::isListingBelow(output->text);
    if (!isBelievable) return std::nullopt;
    return PathSet(std::move(output->text));
  } catch (const std::bad_alloc&) {
    return std::nullopt;  // as good as a Git that does not answer
  }
}

// Nobody believes one listing without the other.
bool GitInspection::hasFailed(const std::string& key) {
  const std::scoped_lock lock(mutex_);
  return repositories_.at(key).listingsFailed > 0;
}

void GitInspection::finish(const Run& run, std::optional<PathSet> listed) {
  const int failures = listed ? 0 : 1;
  const std::scoped_lock lock(mutex_);
  Repository& repository = repositories_.at(run.key);
  GitSnapshot& snapshot = *repository.snapshot;
  (run.listing == GitInspector::Listing::tracked ? snapshot.trackedPaths : snapshot.ignoredPaths) =
      std::move(listed).value_or(PathSet());
  repository.listingsFailed += failures;
  repository.listingsLeft -= 1;
  if (repository.listingsLeft > 0) return;
  snapshot.isAvailable = repository.listingsFailed == 0;
  snapshotReady_.notify_all();
}

}  // namespace broomtide
