#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "core/Records.h"
#include "platform/DirectoryEnumerator.h"
#include "rules/VersionControl.h"

namespace broomtide {

/// A repository below a folder.
struct Repository {
  std::string root;          ///< an absolute path
  const Repository* around;  ///< the nearest one that it lies in; null when there is none
};

/// A reason against everything in a folder.
struct Caution {
  Message reason;
  const Caution* around;  ///< the next one, of the same folder or of one around it; null at the end
};

/// What lies around an entry, the deepest of each; null when there is none.
struct Surroundings {
  const ProjectContext* project = nullptr;
  const Repository* repository = nullptr;
  const Caution* caution = nullptr;

  bool operator==(const Surroundings&) const = default;
};

/// The projects and repositories below a folder.
struct ProjectDiscovery {
  std::vector<ProjectContext> projects;  ///< longest root path first, then in byte order
  std::vector<std::string> gitRoots;     ///< repository roots, longest path first
  std::int64_t entriesInspected = 0;     ///< file-system entries visited
  std::vector<ScanIssue> issues;
};

/// Finds projects by their manifests, repositories by their ".git" entries and working copies of
/// other version control systems by theirs, in what a walk through a tree tells of it. Nothing is
/// looked for inside Xcode bundles. One object for one walk, used by one thread.
class ProjectDetector {
 public:
  /// Called with each repository root as soon as it is found.
  using RepositoryFunction = std::function<void(const std::string& root)>;

  /// `root` is the folder that is walked, a standardised absolute path.
  ProjectDetector(std::string root, RepositoryFunction onRepository);

  /// Begins the entries of a folder, given by its path below the root. A folder comes after the
  /// one that holds it, and before anything else when it lies in the one that came last.
  void enterFolder(std::string_view path);

  /// Tells of an entry of the folder that was entered last. All entries of a folder are told of
  /// before the next one is entered.
  void addEntry(std::string_view name, EntryType type);

  /// Speaks against everything in the folder that was entered last.
  void addCaution(Message reason);

  /// Records a problem with a folder, given by its path below the root. When the folder is entered
  /// next, not all of its entries are known, and it counts as a repository: Git knows better.
  /// Throws std::system_error when open files or memory have run out, because a repository may be
  /// hidden in that folder.
  void addIssue(std::string_view path, std::error_code error);

  /// What lies around the entries of a folder, which is the one that was entered last or lies above
  /// it; asking about it forgets what lies deeper. Valid as long as the detector.
  Surroundings around(std::string_view path);

  /// Everything that was found. To be called once, after the last entry.
  ProjectDiscovery finish();

 private:
  // A project or a repository on the way to the folder that was entered last, or both.
  struct Place {
    std::string path;  // below the root
    Surroundings around;
    ProjectContext* project = nullptr;  // in this very folder
  };

  bool isInBundle(std::string_view path) const;
  Place& place();
  void addRepository();
  void addWorkingCopy(const VersionControlSystem& system);
  void addManifest(ProjectKind kind, std::string_view name);
  std::string location(std::string_view path) const;

  const std::string root_;
  const RepositoryFunction onRepository_;
  ProjectDiscovery discovery_;
  std::map<std::string, ProjectContext> projects_;  // by root; manifests as they come
  std::deque<Repository> repositories_;
  std::deque<Caution> cautions_;
  std::vector<Place> places_;                   // from the root down
  std::string folder_;                          // entered last
  std::optional<std::string> folderWithIssue_;  // the last one
  std::string bundle_;  // the outermost one around that folder; empty when there is none
};

}  // namespace broomtide
