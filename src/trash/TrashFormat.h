#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Date.h"

/// The texts of a Trash, as the FreeDesktop.org specification of version 1.0 fixes them.
namespace broomtide {

/// What follows the name of an item in the name of the file that tells where it came from.
inline constexpr std::string_view trashInfoSuffix = ".trashinfo";

/// The name of a user's own Trash, wherever that lies, and the names of the two folders in every
/// Trash: that of the items and that of their information. A folder of this name is only a Trash
/// when it has both.
inline constexpr std::string_view trashOfHome = "Trash";
inline constexpr const char* trashFiles = "files";
inline constexpr const char* trashInformation = "info";

/// Whether a folder of this name at the top of a mount is a Trash: ".Trash" for all users, or that
/// of one of them, such as ".Trash-1000".
bool isTrashOfMount(std::string_view name);

/// The name that an item gets in the Trash: `name` for the number 1, else with the number before
/// its extension. Shortened, but for the extension, so that there is room for the suffix.
std::string trashName(std::string_view name, std::uint64_t number);

/// What is written down as the place of an item at an absolute path: the path as it is when `top`
/// is empty, else what follows `top`, the folder that holds the Trash and that the path lies below.
std::string recordedPath(std::string_view path, std::string_view top);

/// What the information file of an item says: the path that it had (absolute, or relative to the
/// folder that holds the Trash) and when it was moved, in local time.
std::string trashInfo(std::string_view path, Date movedAt);

/// A folder in a Trash, as one line of the Trash's list of sizes tells of it.
struct DirectorySize {
  std::string name;            ///< its name in the Trash
  std::int64_t size = 0;       ///< in bytes
  std::int64_t changedAt = 0;  ///< when its information file was changed, in seconds since 1970
};

/// The text of the list with new folders at its end. What the text says of folders of the same
/// names is dropped, because it is of folders that have gone. All other lines stay as they are, in
/// their order, also those that nobody can read; the last one gets its newline.
std::string withDirectorySizes(std::string_view text, const std::vector<DirectorySize>& added);

}  // namespace broomtide
