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

Contents readContents(FileManager& fileManager, FileDescriptor folder, const ContentsPolicy& policy,
                      const std::stop_token& stop) {
  Contents contents;
  DirectoryEnumerator entries(
      fileManager, DirectoryEnumerator::Order::foldersAfter,
      [](std::string_view, std::error_code) {}, stop);
  entries.begin(std::move(folder));
  while (entries.next()) {
    if (stop.stop_requested()) throw CancellationError();
    const bool isAtTop = entries.folderPath().empty();
    const Sign sign = signOf(policy, entries.name(), entries.type(), isAtTop);
    if (sign != Sign::none) contents.add(sign, entries.relativePath());
  }
  return contents;
}

}  // namespace broomtide
