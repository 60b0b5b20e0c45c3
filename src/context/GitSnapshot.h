#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Enumerations.h"

namespace broomtide {

/// A set of relative paths, kept sorted in one block of memory.
class PathSet {
 public:
  PathSet() = default;

  /// Takes paths that each end with a zero byte; slashes around a path are dropped.
  explicit PathSet(std::string zeroTerminatedPaths);

  bool contains(std::string_view path) const;

  /// Whether the set holds a path below `folder`.
  bool containsBelow(std::string_view folder) const;

  /// Whether the set holds `path` or a folder above it.
  bool covers(std::string_view path) const;

 private:
  struct Slice {
    std::size_t offset;
    std::size_t length;
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

/// So many repositories beside the one by which an item is judged are asked about it. Somebody who
/// puts more around it wants to keep the program busy.
inline constexpr std::size_t maxOtherRepositories = 8;

/// How Git regards an item with several repositories around it: as the one at `root` does, by which
/// it is judged, unless one of the others tracks the item, or lies between and is silent. When
/// `root` is null, nothing is known but what the others track. `statusIn` tells what each says.
/// Unavailable when there are more than `maxOtherRepositories`.
GitItemStatus statusAmong(const std::string* root, const std::vector<std::string>& others,
                          const std::function<GitItemStatus(const std::string& root)>& statusIn);

}  // namespace broomtide
