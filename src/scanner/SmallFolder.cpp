#include "scanner/SmallFolder.h"

#include <utility>

namespace broomtide {
namespace {

constexpr std::int64_t mostEntries = 32;
static_assert(mostEntries < Measurement::progressInterval);

// Adds the current entry; false when a small folder does not hold such an entry or a problem needs
// a closer look.
bool addEntry(DirectoryEnumerator& entries, Measurement::Result& result) {
  const EntryType type = entries.type();
  if (++result.entries > mostEntries) return false;
  if (type == EntryType::link || type == EntryType::other) return true;
  FileAttributes attributes;
  if (type != EntryType::file || entries.readAttributes(attributes)) return false;
  if (attributes.isRegularFile()) result.bytes += attributes.allocatedBytes;
  return true;
}

}  // namespace

SmallFolder::SmallFolder(FileManager& fileManager)
    : fileManager_(fileManager),
      entries_(fileManager, DirectoryEnumerator::Order::foldersAfter,
               [this](std::string_view, std::error_code error) { readError_ = error; }) {}

std::optional<Measurement::Result> SmallFolder::measure(FileDescriptor& folder,
                                                        const std::string& path) {
  Measurement::Result result;
  readError_.clear();
  entries_.begin(std::move(folder));
  while (entries_.next()) {
    if (addEntry(entries_, result)) continue;
    folder = entries_.end();
    readError_ = fileManager_.rewindFolder(folder.get());
    if (!readError_) return std::nullopt;
    result = {};
    break;
  }
  if (readError_) result.issues.push_back(ScanIssue::about(path, readError_.message()));
  return result;
}

}  // namespace broomtide
