#pragma once

#include <string>
#include <string_view>

#include "platform/FileManager.h"

/// What must stay the same for an item between a scan and its removal. Symlinks are never followed.
namespace broomtide::FileIdentity {

/// Device, inode and file-type bits in decimal, joined by ":".
std::string token(const FileAttributes& attributes);

}  // namespace broomtide::FileIdentity

/// Whether a location really lies inside a folder. The file system is asked afresh on every call.
namespace broomtide::PathSafety {

/// The standardised path with all symlinks resolved; components that do not exist stay as written.
std::string resolved(std::string_view path);

/// Whether `item`, symlinks resolved, lies below `root`, symlinks resolved. The root is not inside
/// itself, and nothing is inside a root that resolves to the root of the file system.
bool contains(std::string_view item, std::string_view root);

}  // namespace broomtide::PathSafety
