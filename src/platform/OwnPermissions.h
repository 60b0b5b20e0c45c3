#pragma once

#include <sys/types.h>

#include <system_error>

namespace broomtide {

/// What Broomtide creates is open to its user alone, and whole: the umask of the process, which can
/// only take permissions away, has no say. It is left as it is, because it belongs to all threads
/// and to the programs that they start. On a file system that has no permissions the item keeps
/// those that it shows. What the user could not use gives an error, and should be removed again.
/// Both may be called from any thread.
namespace OwnPermissions {

constexpr mode_t forFiles = 0600;
constexpr mode_t forFolders = 0700;

/// Looks at an open file that was just created, and corrects it if need be.
std::error_code giveToFile(int file);

/// The same for a folder that was just created with this name in an open folder. Should the name
/// lead to another item by now, that one is left alone unless it is a folder of this user.
std::error_code giveToFolder(int folder, const char* name);

}  // namespace OwnPermissions
}  // namespace broomtide
