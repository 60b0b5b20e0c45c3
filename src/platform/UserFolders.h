#pragma once

#include <optional>
#include <string>
#include <vector>

/// The folders that the system keeps for the user. All are absolute paths, which need not exist.
namespace broomtide::UserFolders {

/// The home folder that the user database gives for the real user, whatever the environment says;
/// nothing when it gives none.
std::optional<std::string> realHome();

/// The home folders of the real user and of the environment, symlinks resolved.
std::vector<std::string> homes();

/// Whether this process is root with the home folder of another user in its environment. What it
/// created there, that user could not change.
bool isHomeOfAnother();

/// Where applications keep the user's data: `$XDG_DATA_HOME`, else `.local/share` in the home
/// folder of the environment, else in the real one; nothing when none of them is known.
std::optional<std::string> applicationData();

/// The user's own Trash; nothing when it is not known where applications keep data.
std::optional<std::string> homeTrash();

}  // namespace broomtide::UserFolders
