#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "context/EnclosingFolders.h"
#include "core/ProjectContext.h"
#include "core/ScanCandidate.h"
#include "platform/FileManager.h"

namespace broomtide {

/// The projects and repositories below a folder.
struct ProjectDiscovery {
  std::vector<ProjectContext> projects;  ///< longest root path first, then in byte order
  std::vector<std::string> gitRoots;     ///< repository roots, longest path first
  std::int64_t entriesInspected = 0;     ///< file-system entries visited
  std::vector<ScanIssue> issues;
};

namespace ProjectDetector {

/// Called with each repository root as soon as it is found.
using RepositoryFunction = std::function<void(const std::string& root)>;

/// Finds every project by its manifests and every repository by its ".git" entry in one pass below
/// `root`, a standardised absolute path; nothing is looked for inside artefacts. Throws
/// CancellationError after `stop` was asked to stop, and std::system_error when open files or
/// memory run out. A root that cannot be opened gives an empty discovery.
ProjectDiscovery discover(const std::string& root, FileManager& fileManager, std::stop_token stop,
                          const RepositoryFunction& onRepository);

/// The ecosystem that a regular file of this name marks its folder as belonging to.
std::optional<ProjectKind> manifestKind(std::string_view name);

}  // namespace ProjectDetector

/// Looks up the surroundings of a location in a discovery, which must outlive it unchanged.
class ProjectLookup {
 public:
  explicit ProjectLookup(const ProjectDiscovery& discovery);

  /// The deepest project whose root is `path`, a standardised absolute path, or lies above it.
  const ProjectContext* nearestProject(std::string_view path) const;

  /// The deepest repository root that is `path` or lies above it.
  const std::string* nearestGitRoot(std::string_view path) const;

 private:
  const ProjectDiscovery& discovery_;
  EnclosingFolders projects_;
  EnclosingFolders gitRoots_;
};

}  // namespace broomtide
