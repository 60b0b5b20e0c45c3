#pragma once

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "context/GitSnapshot.h"
#include "core/ServiceInterfaces.h"
#include "platform/FileManager.h"

namespace broomtide {

/// Moves candidates to the Trash of the desktop, each after it has passed every check again. One
/// cleanup runs at a time; another one waits.
class DefaultTrashManager final : public TrashManaging {
 public:
  /// Asks Git about repositories, by absolute path, and gives a snapshot for each standardised one.
  using GitFunction = std::function<std::map<std::string, GitSnapshot>(
      const std::vector<std::string>& roots, std::stop_token stop)>;

  /// `homeTrash` is the user's own Trash, an absolute path that need not exist yet. The file
  /// manager must outlive the trash manager.
  DefaultTrashManager(FileManager& fileManager, GitFunction inspectGit,
                      std::optional<std::string> homeTrash);

  CleanupResult moveToTrash(const std::vector<ScanCandidate>& candidates, const std::string& root,
                            std::stop_token stop) noexcept override;

 private:
  std::map<std::string, GitSnapshot> askGit(const std::vector<ScanCandidate>& candidates,
                                            const std::stop_token& stop) const;

  FileManager& fileManager_;
  const GitFunction inspectGit_;
  const std::optional<std::string> homeTrash_;
  std::mutex oneAtATime_;
};

}  // namespace broomtide
