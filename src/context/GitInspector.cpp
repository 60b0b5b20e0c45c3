#include "context/GitInspector.h"

#include <algorithm>
#include <new>
#include <utility>

#include "core/Paths.h"
#include "platform/Confinement.h"
#include "platform/FileManager.h"
#include "platform/PathSafety.h"

// How Git is run. A repository that is added puts its listings (what is tracked, what is ignored)
// into a queue; a few threads, each confined for good before its first child, take one listing
// after the other and run Git for it. The first listing of a repository that fails makes the other
// one fail without a run, because nobody believes one without the other.
//
// A snapshot becomes available when its last listing has come in, and never changes afterwards.
// Whoever asks for one waits on `snapshotReady_`, which is woken up once for each repository. Git's
// answer counts as none when it fails, complains, takes too long, lists what no index can hold, or
// when a repository to which something was added has lost its index: Git would list nothing as
// tracked then, and every tracked file would pass for an unknown one. All runs share a budget of
// time without answers and of memory for listings; what is beyond it has no answer either.

namespace broomtide {
namespace {

std::size_t maxThreads() {
  return std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 4);
}

}  // namespace

GitInspection::GitInspection(std::optional<std::string> git, std::chrono::milliseconds limit,
                             std::stop_token stop)
    : git_(std::move(git)), budget_(limit), stopping_(std::move(stop)) {}

GitInspection::~GitInspection() { stopping_.requestStop(); }

void GitInspection::add(const std::string& root) {
  using enum GitCommand::Listing;
  using enum GitCommand::Mark;
  const std::string key = paths::standardized(root);
  std::optional<std::string> inside = folderOfRootsAround(root);
  const GitCommand::Mark mark = inside ? none : GitCommand::markOf(systemFileManager(), root);
  if (mark == none && !inside) inside = root;
  const std::scoped_lock lock(mutex_);
  const auto [place, isNew] = repositories_.try_emplace(key);
  if (!isNew) return;
  Repository& repository = place->second;
  repository.snapshot = std::make_shared<GitSnapshot>();
  repository.snapshot->root = inside.value_or(root);
  if (mark == unusable) return;  // it stays unavailable
  runs_.push_back({key, tracked, std::move(inside)});
  if (mark == usable) runs_.push_back({key, ignored});
  repository.listingsLeft = mark == usable ? 2 : 1;
  runAdded_.notify_all();
  if (threads_.size() < maxThreads()) {
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

std::optional<PathSet> GitInspection::list(const Run& run, const std::stop_token& stop) {
  if (!git_) return std::nullopt;
  try {
    std::optional<std::string> listed =
        run.inside ? listingAround(*run.inside, stop) : listing(run.key, run.listing, stop);
    if (!listed) return std::nullopt;
    return PathSet(*std::move(listed));
  } catch (const std::bad_alloc&) {
    return std::nullopt;  // as good as a Git that does not answer
  }
}

// What all repositories around a folder track below it; nothing when one of them is silent.
std::optional<std::string> GitInspection::listingAround(const std::string& folder,
                                                        const std::stop_token& stop) {
  // To a repository a symlink in it is an entry, and leads nowhere.
  const std::string real = PathSafety::resolved(folder);
  const std::vector<std::string> roots = GitCommand::repositoriesAround(systemFileManager(), real);
  if (roots.empty() || roots.size() > maxOtherRepositories) return std::nullopt;
  std::string all;
  for (const std::string& root : roots) {
    // All of it is listed, because a part does not show whether it can be believed.
    std::optional<std::string> listed;
    if (GitCommand::markOf(systemFileManager(), root) == GitCommand::Mark::usable) {
      listed = listing(root, GitCommand::Listing::tracked, stop);
    }
    if (!listed) {
      budget_.drop(all.size());
      return std::nullopt;
    }
    const std::size_t size = listed->size();
    const std::size_t start = paths::appending(root, "").size();
    GitCommand::keepBelow(*listed, std::string_view(real).substr(start));
    budget_.drop(size - listed->size());
    all += *listed;
  }
  return all;
}

// What the repository at a root tracks or ignores, when that can be believed.
std::optional<std::string> GitInspection::listing(const std::string& root,
                                                  GitCommand::Listing listed,
                                                  const std::stop_token& stop) {
  std::optional<std::string> paths = answer(GitCommand::listingCommand(*git_, root, listed), stop);
  if (!paths) return std::nullopt;
  if (listed == GitCommand::Listing::ignored) {
    if (GitCommand::isListingBelow(*paths)) return paths;
  } else if (GitCommand::isListingOfIndex(*paths) &&
             !(paths->empty() && hasLostIndex(root, stop))) {
    if (const auto workTrees = workTreesBelow(root, stop)) {
      *paths += *workTrees;
      return paths;
    }
  }
  budget_.drop(paths->size());
  return std::nullopt;
}

// A linked work tree holds files that the repository tracks too, in its own index. It can lie in a
// folder that is ignored.
std::optional<std::string> GitInspection::workTreesBelow(const std::string& root,
                                                         const std::stop_token& stop) {
  if (!GitCommand::hasWorkTrees(systemFileManager(), root)) return std::string();
  const auto printed = answer(GitCommand::workTreesCommand(*git_, root), stop);
  if (!printed) return std::nullopt;
  return GitCommand::workTreesBelow(PathSafety::resolved(root), *printed);
}

// Without an index, Git lists nothing as tracked, which is right only where nothing was ever added.
bool GitInspection::hasLostIndex(const std::string& folder, const std::stop_token& stop) {
  const auto index = answer(GitCommand::indexCommand(*git_, folder), stop);
  if (!index) return true;
  if (!GitCommand::namesMissingIndex(systemFileManager(), folder, *index)) return false;
  const auto objects = answer(GitCommand::countCommand(*git_, folder), stop);
  return !objects || !GitCommand::countsNothing(*objects);
}

// What Git prints, unless it fails or complains.
std::optional<std::string> GitInspection::answer(const ChildProcess::Command& command,
                                                 const std::stop_token& stop) {
  const std::optional<ChildProcess::Limits> limits = budget_.next();
  if (!limits) return std::nullopt;
  const auto start = std::chrono::steady_clock::now();
  std::optional<ChildProcess::Output> output = ChildProcess::run(command, *limits, stop);
  if (output && !GitCommand::tellsOfFailure(output->errors)) return std::move(output->text);
  if (output) budget_.drop(output->text.size());
  budget_.lose(
      std::chrono::ceil<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start));
  return std::nullopt;
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
  (run.listing == GitCommand::Listing::tracked ? snapshot.trackedPaths : snapshot.ignoredPaths) =
      std::move(listed).value_or(PathSet());
  repository.listingsFailed += failures;
  repository.listingsLeft -= 1;
  if (repository.listingsLeft > 0) return;
  snapshot.isAvailable = repository.listingsFailed == 0;
  snapshotReady_.notify_all();
}

std::map<std::string, GitSnapshot> GitInspector::inspect(const std::vector<std::string>& roots,
                                                         std::stop_token stop,
                                                         std::chrono::milliseconds limit) {
  GitInspection inspection(GitCommand::executable(), limit, std::move(stop));
  for (const std::string& root : roots) inspection.add(root);
  std::map<std::string, GitSnapshot> snapshots;
  for (const std::string& root : roots) {
    GitSnapshot snapshot{.root = root, .trackedPaths = {}, .ignoredPaths = {}};
    if (const auto answer = inspection.snapshot(root)) snapshot = *answer;
    snapshots.insert_or_assign(paths::standardized(root), std::move(snapshot));
  }
  return snapshots;
}

}  // namespace broomtide
