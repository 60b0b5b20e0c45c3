#include "context/ContentsReader.h"

#include <optional>
#include <utility>

#include "core/Enumerations.h"
#include "core/ServiceInterfaces.h"
#include "rules/ScanRules.h"

namespace broomtide {
namespace {

std::optional<CandidateKind> kindOf(EntryType type) {
  switch (type) {
    case EntryType::file:
      return CandidateKind::file;
    case EntryType::folder:
      return CandidateKind::directory;
    case EntryType::link:
    case EntryType::other:
    case EntryType::unreadable:
      break;
  }
  return std::nullopt;
}

}  // namespace

Sign signOf(const ContentsPolicy& policy, std::string_view name, EntryType type, bool isAtTop) {
  return ScanRules::signOf(policy, name, kindOf(type), isAtTop);
}

bool StoreFinder::completes(std::string_view folder, std::string_view name, EntryType type) {
  const bool isPart = name == "HEAD" || name == "objects" || name == "refs";
  if (!isPart) return false;
  if (folder != folder_ || marks_.isGitStore()) marks_ = {};
  folder_ = folder;
  marks_.add(name, type);
  return marks_.isGitStore();
}

Contents readContents(FileManager& fileManager, FileDescriptor folder, const ContentsPolicy& policy,
                      const std::stop_token& stop) {
  Contents contents;
  StoreFinder stores;
  DirectoryEnumerator entries(
      fileManager, DirectoryEnumerator::Order::foldersAfter,
      [](std::string_view, std::error_code) {}, stop);
  entries.begin(std::move(folder));
  while (entries.next()) {
    if (stop.stop_requested()) throw CancellationError();
    findSigns(policy, entries, stores, true,
              [&contents](Sign sign, std::string_view path) { contents.add(sign, path); });
  }
  return contents;
}

}  // namespace broomtide
