#pragma once

#include <optional>
#include <string>
#include <vector>

namespace broomtide::test {

/// What an information file of a Trash says.
struct TrashInfo {
  std::string path;          ///< absolute, or relative to the folder that holds the Trash
  std::string deletionDate;  ///< local time, such as 2025-03-01T09:30:00

  bool operator==(const TrashInfo&) const = default;
};

/// The contents of an information file; nothing for a text that differs from what Broomtide writes
/// by as little as a blank.
std::optional<TrashInfo> parseTrashInfo(const std::string& text);

/// One item in a Trash folder.
struct TrashedItem {
  std::string name;  ///< its name in the Trash
  TrashInfo info;

  bool operator==(const TrashedItem&) const = default;
};

/// The items of the Trash folder at a path, by name. Throws when one has information that cannot be
/// read, none, or is missing itself.
std::vector<TrashedItem> trashedItems(const std::string& trash);

/// Renames an item back to where it was; a relative path is one below `top`. Nothing is replaced
/// and no folder made: throws when the place is taken or gone, and then everything stays.
void restore(const std::string& trash, const TrashedItem& item, const std::string& top = "/");

}  // namespace broomtide::test
