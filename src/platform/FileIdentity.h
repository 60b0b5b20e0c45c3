#pragma once

#include <optional>
#include <string>

#include "platform/FileManager.h"

/// What must stay the same for an item between a scan and its removal. Links are never followed.
namespace broomtide::FileIdentity {

/// Device, inode and file-type bits in decimal, joined by ":".
std::string token(const FileAttributes& attributes);

/// The token of the item at an absolute path, or nothing when it cannot be examined.
std::optional<std::string> read(FileManager& fileManager, const std::string& path);

/// Whether the item at an absolute path is itself a link; false when it cannot be examined.
bool isSymbolicLink(FileManager& fileManager, const std::string& path);

}  // namespace broomtide::FileIdentity
