#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Enumerations.h"

namespace broomtide {

/// A set of relative paths, kept sorted in one block of memory.
class PathSet {
 public:
  PathSet() = default;

  /// Takes paths that each end with a zero byte, less than 4 GiB; slashes around a path are
  /// dropped.
  explicit PathSet(std::string zeroTerminatedPaths);

  bool contains(std::string_view path) const;

  /// Whether the set holds a path below `folder`.
  bool containsBelow(std::string_view folder) const;

  /// Whether the set holds `path` or a folder above it.
  bool covers(std::string_view path) const;

 private:
  // Half the size of two pointers: there can be millions, and no block has four gigabytes.
  struct Slice {
    std::uint32_t offset;
    std::uint32_t length;
  };

  std::string_view text(Slice slice) const {
    return std::string_view(block_).substr(slice.offset, slice.length);
  }

  std::string block_;
  std::vector<Slice> paths_;
};

/// What Git said about one repository at one time.
struct GitSnapshot {
  std::string root;      ///< the repository, an absolute path
  PathSet trackedPaths;  ///< relative to the root
  PathSet ignoredPaths;  ///< files, and folders that are ignored as a whole
  bool isAvailable = false;

  /// How Git regards the item at an absolute path. A folder that holds a tracked file is tracked.
  /// `unavailable` when Git could not be asked or the item lies outside the repository.
  GitItemStatus status(std::string_view location, bool isDirectory) const;
};

/// How all the repositories above `folder`, an absolute path, are named among repository roots.
/// They are asked what they track below it, and nothing else.
std::string rootsAround(const std::string& folder);

/// The folder of such a name, null when a root is none.
std::optional<std::string> folderOfRootsAround(const std::string& root);

/// So many repositories beside the one by which an item is judged are asked about it. Somebody who
/// puts more around it wants to keep the program busy.
inline constexpr std::size_t maxOtherRepositories = 8;

/// How Git regards an item with several repositories around it.
struct GitJudgement {
  GitItemStatus status = GitItemStatus::unavailable;
  /// Whether the item is in a repository as far as its status tells: one judges it, or one that
  /// could have something to say is silent.
  bool hasRepository = false;

  bool operator==(const GitJudgement&) const = default;
};

/// Judges an item as the repository at `root` does, unless one of the others gives more cause for
/// caution: it tracks the item; or it is silent; or it lies between and does not ignore what the
/// outer one ignores. When `root` is null, nothing is known but what the others track. `statusIn`
/// tells what each says. More than `maxOtherRepositories` are as good as a silent one.
GitJudgement statusAmong(const std::string* root, const std::vector<std::string>& others,
                         const std::function<GitItemStatus(const std::string& root)>& statusIn);

}  // namespace broomtide
