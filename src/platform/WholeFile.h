#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/FileManager.h"

/// Small files, read and written in one go, and the folders for them.
namespace broomtide::WholeFile {

/// Whether a file must have reached the disk when writing it has succeeded.
enum class Durability { whenConvenient, onDisk };

/// Reads a regular file to its end; anything else that has the name is an invalid_argument, and a
/// file of more than `maxBytes` is a file_too_large.
std::error_code read(FileManager& fileManager, int folder, const std::string& name,
                     LinkPolicy links, std::string& contents,
                     std::size_t maxBytes = std::numeric_limits<std::size_t>::max());

/// Creates a file with these contents. Fails with file_exists when the name is taken; after any
/// other failure there is no such file.
std::error_code create(FileManager& fileManager, int folder, const std::string& name,
                       std::string_view contents, Durability durability);

/// Creates the folder at an absolute path and those above it, as far as they are missing, and opens
/// it.
std::error_code openOrCreateFolder(FileManager& fileManager, const std::string& path,
                                   FileDescriptor& opened);

}  // namespace broomtide::WholeFile
