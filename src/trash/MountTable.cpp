#include "trash/MountTable.h"

#include <algorithm>
#include <cstddef>

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

std::vector<std::string> mountPoints(std::string_view mountInfo) {
  constexpr int fieldsBefore = 4;  // two numbers, a device, the part of the file system
  std::vector<std::string> result;
  while (!mountInfo.empty()) {
    std::string_view line = takeUntil('\n', mountInfo);
    for (int field = 0; field < fieldsBefore; ++field) takeUntil(' ', line);
    const std::string_view path = takeUntil(' ', line);
    if (!path.empty()) result.push_back(unescaped(path));
  }
  return result;
}

std::error_code read(FileManager& fileManager, std::vector<std::string>& mountPoints) {
  std::string text;
  if (const std::error_code error = WholeFile::read(
          fileManager, workingDirectory, "/proc/self/mountinfo", LinkPolicy::follow, text)) {
    return error;
  }
  mountPoints = MountTable::mountPoints(text);
  return {};
}

}  // namespace broomtide::MountTable
