#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/FileManager.h"

/// Where file systems are mounted, as one process sees them.
namespace broomtide::MountTable {

/// One mount: a part of a file system, and where it is shown.
struct Mount {
  std::uint64_t id = 0;  ///< what `FileAttributes::mount` gives for what is reached through it
  std::string device;    ///< names the file system, such as "8:1"
  std::string part;      ///< the folder of the file system that is at the mount point; "/" for all
  std::string point;     ///< an absolute path

  bool operator==(const Mount&) const = default;
};

/// The mounts in the text of a `mountinfo` file, later ones over earlier ones.
std::vector<Mount> mounts(std::string_view mountInfo);

/// The mounts at this moment, as the process of that number sees them, or as this one does.
std::error_code read(FileManager& fileManager, std::vector<Mount>& mounts,
                     const std::string& process = "self");

/// The place of an absolute path without symlinks in its file system, which is the same for every
/// mount that shows it. `mount` is the id of the mount that it was reached through, or 0 for the
/// one that is visible. Empty when the path does not lie in such a mount.
std::string placeInFileSystem(const std::vector<Mount>& mounts, std::string_view path,
                              std::uint64_t mount = 0);

}  // namespace broomtide::MountTable
