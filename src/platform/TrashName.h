#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/Date.h"

/// The texts of a Trash, as the FreeDesktop.org specification of version 1.0 fixes them.
namespace broomtide {

/// What follows the name of an item in the name of the file that tells where it came from.
inline constexpr std::string_view trashInfoSuffix = ".trashinfo";

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

}  // namespace broomtide
