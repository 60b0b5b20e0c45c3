#pragma once

#include <stop_token>
#include <string_view>

#include "core/Contents.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/FileManager.h"

namespace broomtide {

/// What an entry below a folder says about it, by name and type. `isAtTop` tells that the entry
/// lies in the folder itself.
Sign signOf(const ContentsPolicy& policy, std::string_view name, EntryType type, bool isAtTop);

/// Reads all names below an open folder, following no symlink. What cannot be read is passed over.
/// Throws CancellationError once `stop` is asked to stop.
Contents readContents(FileManager& fileManager, FileDescriptor folder, const ContentsPolicy& policy,
                      const std::stop_token& stop);

}  // namespace broomtide
