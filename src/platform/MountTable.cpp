#include "platform/MountTable.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

#include "core/Paths.h"
#include "platform/WholeFile.h"

namespace broomtide::MountTable {
namespace {

// Whether the text begins with a byte that is written as a backslash and three octal digits, as
// blanks, tabs, newlines and backslashes are.
bool beginsWithEscape(std::string_view text) {
  const auto isDigit = [&text](std::size_t position, char highest) {
    return text[position] >= '0' && text[position] <= highest;
  };
  return text.size() > 3 && text[0] == '\\' && isDigit(1, '3') && isDigit(2, '7') &&
         isDigit(3, '7');
}

std::string unescaped(std::string_view path) {
  std::string result;
  while (!path.empty()) {
    std::size_t taken = 1;
    char character = path.front();
    if (beginsWithEscape(path)) {
      taken = 4;
      const auto digit = [&path](std::size_t position) { return path[position] - '0'; };
      character = static_cast<char>(digit(1) * 64 + digit(2) * 8 + digit(3));
    }
    result += character;
    path.remove_prefix(taken);
  }
  return result;
}

// What stands before the separator, which is taken off as well.
std::string_view takeUntil(char separator, std::string_view& text) {
  const std::string_view part = text.substr(0, text.find(separator));
  text.remove_prefix(std::min(part.size() + 1, text.size()));
  return part;
}

}  // namespace

std::vector<Mount> mounts(std::string_view mountInfo) {
  std::vector<Mount> result;
  while (!mountInfo.empty()) {
    std::string_view line = takeUntil('\n', mountInfo);
    Mount mount;
    const std::string_view id = takeUntil(' ', line);
    std::from_chars(id.data(), id.data() + id.size(), mount.id);
    takeUntil(' ', line);  // of the mount around it
    mount.device = takeUntil(' ', line);
    mount.part = unescaped(takeUntil(' ', line));
    mount.point = unescaped(takeUntil(' ', line));
    if (!mount.point.empty()) result.push_back(std::move(mount));
  }
  return result;
}

std::error_code read(FileManager& fileManager, std::vector<Mount>& mounts,
                     const std::string& process) {
  std::string text;
  const std::string file = "/proc/" + process + "/mountinfo";
  if (const std::error_code error =
          WholeFile::read(fileManager, workingDirectory, file, LinkPolicy::follow, text)) {
    return error;
  }
  mounts = MountTable::mounts(text);
  return {};
}

std::string placeInFileSystem(const std::vector<Mount>& mounts, std::string_view path,
                              std::uint64_t mount) {
  const Mount* found = nullptr;
  for (const Mount& each : mounts) {
    const bool holds = each.point == "/" || path == each.point || paths::isBelow(path, each.point);
    const bool isWanted = mount == 0 ? found == nullptr || each.point.size() >= found->point.size()
                                     : each.id == mount;
    if (holds && isWanted) found = &each;
  }
  if (found == nullptr) return {};
  const auto withoutSlash = [](std::string_view folder) { return folder == "/" ? "" : folder; };
  path.remove_prefix(withoutSlash(found->point).size());
  return found->device + std::string(withoutSlash(found->part)) + std::string(withoutSlash(path));
}

}  // namespace broomtide::MountTable
