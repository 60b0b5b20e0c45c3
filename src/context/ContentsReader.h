#pragma once

#include <stop_token>
#include <string>
#include <string_view>

#include "context/FolderMarks.h"
#include "core/Contents.h"
#include "core/Paths.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/FileManager.h"

namespace broomtide {

/// What an entry below a folder says about it, by name and type. `isAtTop` tells that the entry
/// lies in the folder itself.
Sign signOf(const ContentsPolicy& policy, std::string_view name, EntryType type, bool isAtTop);

/// Notices the folders in which Git keeps a repository without a working copy, by their entries,
/// which come one folder after the other.
class StoreFinder {
 public:
  /// Whether an entry of the folder at a path is the last one that makes it such a folder.
  bool completes(std::string_view folder, std::string_view name, EntryType type);

 private:
  std::string folder_;
  FolderMarks marks_;
};

/// Adds what the current entry says to `add`, called with a sign and its path in the enumeration.
/// `isAtTop` tells that the enumeration begins with the folder itself.
template <typename Add>
void findSigns(const ContentsPolicy& policy, DirectoryEnumerator& entries, StoreFinder& stores,
               bool isAtTop, const Add& add) {
  const std::string_view folder = entries.folderPath();
  if (policy.countsFiles && !policy.hasStores &&
      stores.completes(folder, entries.name(), entries.type())) {
    add(Sign::repository, folder.empty() ? "HEAD" : paths::appending(folder, "HEAD"));
  }
  const Sign sign = signOf(policy, entries.name(), entries.type(), isAtTop && folder.empty());
  if (sign != Sign::none) add(sign, entries.relativePath());
}

/// Reads all names below an open folder, following no symlink. What cannot be read is passed over.
/// Throws CancellationError once `stop` is asked to stop.
Contents readContents(FileManager& fileManager, FileDescriptor folder, const ContentsPolicy& policy,
                      const std::stop_token& stop);

}  // namespace broomtide
