#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/DirectoryEnumerator.h"
#include "platform/FileManager.h"

namespace broomtide {

/// What the names of its entries say about a folder, whatever the folder is called.
class FolderMarks {
 public:
  enum Mark : std::uint32_t {
    gitHead = 1U << 0U,
    gitObjects = 1U << 1U,
    gitReferences = 1U << 2U,
    conda = 1U << 3U,
    pythonEnvironment = 1U << 4U,
    resources = 1U << 5U,
    electron = 1U << 6U,
    package = 1U << 7U,
    cmakeCache = 1U << 8U,
    meson = 1U << 9U,
    cargo = 1U << 10U,
    cacheTag = 1U << 11U,
  };

  /// Those of the folder `name`, which may be a path, in an open one: each mark is looked for.
  static FolderMarks of(FileManager& fileManager, int folder, const std::string& name);

  /// Tells of an entry.
  void add(std::string_view name, EntryType type);

  bool has(Mark mark) const { return (marks_ & mark) != 0; }

  /// Whether a repository has its branches here, whose files go by any name.
  bool isGitStore() const { return has(gitHead) && has(gitObjects) && has(gitReferences); }

  /// Whether a package manager or a program was installed here. A Python environment in a project
  /// belongs to that.
  bool isInstalled(bool isInProject) const {
    return has(conda) || (has(pythonEnvironment) && !isInProject) ||
           (has(resources) && has(electron));
  }

  /// Whether it may be an extension of an editor, when `parent` is the name of the folder that
  /// holds it.
  bool mayBeExtension(std::string_view parent) const {
    return parent == "extensions" && has(package);
  }

  /// Whether a build may have made the folder, or a program calls it a cache.
  bool mayBeGenerated() const { return has(cmakeCache) || has(meson) || has(cacheTag); }

 private:
  std::uint32_t marks_ = 0;
};

}  // namespace broomtide
