#include <chrono>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>

#include "core/Paths.h"
#include "fuzz/Input.h"
#include "support/TrashReader.h"
#include "trash/TrashFormat.h"

namespace broomtide::fuzz {
namespace {

void checkReader(std::string_view text) {
  const std::optional<test::TrashInfo> info = test::parseTrashInfo(text);
  if (!info) return;
  require(!info->path.empty() && info->path.find('\0') == std::string::npos, "a path is read");
  require("[Trash Info]\nPath=" + paths::percentEncoded(info->path) +
                  "\nDeletionDate=" + info->deletionDate + '\n' ==
              text,
          "only what could have been written is read");
}

// The bytes are a path, and their beginning a time of up to a century around the first second.
void checkInformation(std::string_view bytes) {
  std::int32_t seconds = 0;
  std::memcpy(&seconds, bytes.data(), std::min(bytes.size(), sizeof seconds));
  const Date date{std::chrono::seconds(seconds)};
  const std::string path(takePart(bytes, '\0'));  // no path holds a zero byte
  if (path.empty()) return;
  std::string shownDate = iso8601(date);
  shownDate.pop_back();
  require(test::parseTrashInfo(trashInfo(path, date)) ==
              test::TrashInfo{.path = path, .deletionDate = shownDate},
          "what is written is read");
}

void checkName(const std::string& name, std::uint64_t number) {
  const std::string found = trashName(name, number);
  require(found.size() + trashInfoSuffix.size() <= 255, "a name in the Trash leaves room");
  const bool isWhole = name.size() + trashInfoSuffix.size() <= 255;
  require(number != 1 || !isWhole || found == name, "a name with room stays");
  // The first may be that of the second too, when it is full and ends with ".2" already.
  require(number == 1 || found != trashName(name, number + 1), "each number gives another name");
}

bool isInteger(std::string text) {
  if (text.starts_with('-')) text.erase(0, 1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// Whether a line tells of one of the folders; what nobody can read tells of none.
bool tellsOf(const std::set<std::string>& names, std::string_view line) {
  const bool hasFields = std::ranges::count(line, ' ') >= 2;
  const std::string size(takePart(line, ' '));
  const std::string date(takePart(line, ' '));
  const std::optional<std::string> name = test::percentDecoded(line);
  return hasFields && isInteger(size) && isInteger(date) && name && names.count(*name) > 0;
}

// A line of each folder as another program may write it: every byte is an escape, in small letters.
std::string otherwiseWritten(const std::vector<DirectorySize>& folders) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string lines;
  for (const DirectorySize& folder : folders) {
    lines += "1 2 ";
    for (const char byte : folder.name) {
      const auto value = static_cast<unsigned char>(byte);
      lines += {'%', digits[value / 16], digits[value % 16]};
    }
    lines += '\n';
  }
  return lines;
}

void checkSizes(std::string_view text, std::string_view folders) {
  std::set<std::string> names;
  for (const std::string_view name : partsOf(folders, '\0')) names.emplace(name);
  std::vector<DirectorySize> added;
  std::string expected;
  for (const std::string& name : names) {
    added.push_back({.name = name, .size = INT64_MAX, .changedAt = INT64_MIN});
  }
  for (const std::string_view line : partsOf(text, '\n')) {
    if (!tellsOf(names, line)) expected += std::string(line) + '\n';
  }
  for (const std::string& name : names) {
    expected += "9223372036854775807 -9223372036854775808 " + paths::percentEncoded(name) + '\n';
  }
  const std::string written = withDirectorySizes(text, added);
  require(withDirectorySizes(written + otherwiseWritten(added), added) == written,
          "a folder is known by its name however it is encoded");
  require(written == expected, "other lines stay and the new ones follow");
}

}  // namespace
}  // namespace broomtide::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return ::setenv("TZ", "UTC0", 1);  // information is written in local time
}

// Inputs are a list of sizes and the names of new folders, each ended by a zero byte; as a whole,
// they stand for a path, a name and the information of an item as well.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace broomtide::fuzz;
  std::string_view input = text(data, size);
  checkReader(input);
  checkInformation(input);
  for (const std::uint64_t number : {1U, 2U, 9U, 4'096U}) checkName(std::string(input), number);
  const std::string_view sizes = takePart(input);
  checkSizes(sizes, input);
  return 0;
}
