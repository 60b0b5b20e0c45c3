#include "trash/MountTable.h"

#include <string>

#include "fuzz/Input.h"

namespace broomtide::fuzz {
namespace {

// As the kernel writes a path.
std::string escaped(std::string_view path) {
  std::string result;
  for (const char byte : path) {
    switch (byte) {
      case ' ':
        result += "\\040";
        break;
      case '\t':
        result += "\\011";
        break;
      case '\n':
        result += "\\012";
        break;
      case '\\':
        result += "\\134";
        break;
      default:
        result += byte;
    }
  }
  return result;
}

bool isOctal(char digit, char highest) { return digit >= '0' && digit <= highest; }

std::string unescaped(const std::string& path) {
  std::string result;
  for (std::size_t at = 0; at < path.size(); ++at) {
    const bool isEscape = path[at] == '\\' && at + 3 < path.size() && isOctal(path[at + 1], '3') &&
                          isOctal(path[at + 2], '7') && isOctal(path[at + 3], '7');
    if (isEscape) {
      result += static_cast<char>(std::stoi(path.substr(at + 1, 3), nullptr, 8));
      at += 3;
    } else {
      result += path[at];
    }
  }
  return result;
}

// The bytes are a table.
void checkReading(std::string_view table) {
  std::vector<std::string> expected;
  for (const std::string_view line : partsOf(table, '\n')) {
    const std::vector<std::string_view> fields = partsOf(line, ' ');
    if (fields.size() > 4 && !fields[4].empty()) {
      expected.push_back(unescaped(std::string(fields[4])));
    }
  }
  require(MountTable::mountPoints(table) == expected, "the fifth field of each line is read");
}

// The bytes are mount points, each ended by a zero byte.
void checkWriting(std::string_view points) {
  std::vector<std::string> expected;
  std::string table;
  for (const std::string_view point : partsOf(points, '\0')) {
    expected.push_back('/' + std::string(point));
    table += "22 1 8:1 / " + escaped(expected.back()) + " rw shared:1 - ext4 /dev/sda1 rw\n";
  }
  require(MountTable::mountPoints(table) == expected, "what the kernel writes is read");
}

}  // namespace
}  // namespace broomtide::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  broomtide::fuzz::checkReading(broomtide::fuzz::text(data, size));
  broomtide::fuzz::checkWriting(broomtide::fuzz::text(data, size));
  return 0;
}
