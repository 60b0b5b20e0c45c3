#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

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

}  // namespace broomtide
