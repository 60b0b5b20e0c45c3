#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

namespace broomtide {

/// Answers which of a set of folders most closely encloses a location. The cost depends on how many
/// different lengths the folders' paths have, not on how many folders there are.
class EnclosingFolders {
 public:
  /// Adds a folder, a standardised absolute path, under a number of the caller's.
  void add(std::string folder, std::size_t number);

  /// The number of the deepest folder that is `path`, a standardised absolute path, or lies above
  /// it.
  std::optional<std::size_t> nearest(std::string_view path) const;

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>{}(text);
    }
  };

  std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> numbers_;
  std::set<std::size_t, std::greater<>> lengths_;  // of the folders' paths, in bytes
};

}  // namespace broomtide
