#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "context/GitCommand.h"
#include "context/GitSnapshot.h"
#include "platform/LinkedStopSource.h"

namespace broomtide {

/// Git at work in the background: repositories are handed in as they are found and their snapshots
/// are asked for when they are needed. Git runs for a few repositories at a time, in the order in
/// which they were added.
class GitInspection {
 public:
  /// `git` is the tool, or nothing, which makes every snapshot unavailable; `limit` bounds one run.
  /// No thread is started before the first repository is added.
  GitInspection(std::optional<std::string> git, std::chrono::milliseconds limit,
                std::stop_token stop);

  /// Ends every child that still runs and waits for the threads.
  ~GitInspection();

  GitInspection(const GitInspection&) = delete;
  GitInspection& operator=(const GitInspection&) = delete;

  /// Adds a repository root, an absolute path, unless it was added before; or what `rootsAround` a
  /// folder names. Any other folder stands for what is around it as well.
  void add(const std::string& root);

  /// The snapshot of an added root; blocks until Git has answered. Null for a root that was never
  /// added, and as soon as `stop` is asked to stop.
  std::shared_ptr<const GitSnapshot> snapshot(const std::string& root);

 private:
  struct Repository {
    std::shared_ptr<GitSnapshot> snapshot;
    int listingsLeft = 0;
    int listingsFailed = 0;
  };
  struct Run {
    std::string key;
    GitCommand::Listing listing;
    std::optional<std::string> inside = std::nullopt;  // what the repositories around are asked of
  };

  void work(const std::stop_token& stop);
  std::optional<PathSet> list(const Run& run, const std::stop_token& stop);
  std::optional<std::string> listingAround(const std::string& folder, const std::stop_token& stop);
  std::optional<std::string> listing(const std::string& root, GitCommand::Listing listed,
                                     const std::stop_token& stop);
  std::optional<std::string> workTreesBelow(const std::string& root, const std::stop_token& stop);
  bool hasLostIndex(const std::string& folder, const std::stop_token& stop);
  std::optional<std::string> answer(const ChildProcess::Command& command,
                                    const std::stop_token& stop);
  bool hasFailed(const std::string& key);
  void finish(const Run& run, std::optional<PathSet> listed);

  const std::optional<std::string> git_;
  GitCommand::Budget budget_;

  std::mutex mutex_;
  std::condition_variable_any runAdded_;
  std::condition_variable_any snapshotReady_;
  std::unordered_map<std::string, Repository> repositories_;  // by standardised root
  std::deque<Run> runs_;

  LinkedStopSource stopping_;
  std::vector<std::jthread> threads_;
};

/// Asks about many repositories at once.
namespace GitInspector {

/// One snapshot for each repository root, by standardised root path. Blocks until Git has answered
/// for all; a repository that Git cannot list within `limit`, or before `stop` is asked to stop,
/// gets a snapshot that is not available. For what `rootsAround` a folder names, and for a folder
/// that is no root, the repositories around tell what they track there, and nothing of what they
/// ignore.
std::map<std::string, GitSnapshot> inspect(const std::vector<std::string>& roots,
                                           std::stop_token stop,
                                           std::chrono::milliseconds limit = GitCommand::runLimit);

}  // namespace GitInspector
}  // namespace broomtide
