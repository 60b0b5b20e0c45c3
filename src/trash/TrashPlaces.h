#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileManager.h"

namespace broomtide {

/// Where Trashes are. What lies in one has already been moved, and would lose its way back if it
/// were moved again. Safe to use from any thread.
class TrashPlaces {
 public:
  /// `home` is the user's own Trash, an absolute path that need not exist. Its symlinks are
  /// resolved once, now.
  explicit TrashPlaces(const std::optional<std::string>& home);

  /// Whether the folder of this name is a Trash: the user's own, or, by the name alone, that of a
  /// mount. It lies in the folder at the relative path `parent`, which may be empty, below `root`,
  /// an absolute path; neither goes through symlinks. Nearly all names cost no allocation.
  bool isTrash(std::string_view root, std::string_view parent, std::string_view name) const;

  /// Whether the item at this path, absolute and without symlinks, lies in a Trash. Folders above
  /// it with the name of any user's own Trash are looked at; one that cannot be counts as a Trash.
  bool hold(FileManager& fileManager, std::string_view path) const;

 private:
  std::optional<std::string> home_;
};

}  // namespace broomtide
