#include <cstdlib>
#include <string>

#include "fuzz/Input.h"
#include "support/TrashReader.h"
#include "trash/TrashFormat.h"

namespace broomtide::fuzz {
namespace {

void checkInformation(const std::string& path) {
  const Date date{std::chrono::seconds(path.size())};
  const std::optional<test::TrashInfo> read = test::parseTrashInfo(trashInfo(path, date));
  require(path.empty() || (read && read->path == path && read->deletionDate + 'Z' == iso8601(date)),
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

void checkSizes(std::string_view text, const std::string& name) {
  const std::vector<DirectorySize> folder = {{.name = name, .size = INT64_MAX, .changedAt = -1}};
  const std::string written = withDirectorySizes(text, folder);
  require(withDirectorySizes(written, folder) == written, "a folder is told of once");
  const std::string others = withDirectorySizes(text, {});
  require(others.starts_with(text) && others.size() <= text.size() + 1, "other lines stay");
}

}  // namespace
}  // namespace broomtide::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  return ::setenv("TZ", "UTC0", 1);  // information is written in local time
}

// Inputs are a list of sizes and the name of a folder; as a whole, they are the name of an item
// too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace broomtide::fuzz;
  std::string_view input = text(data, size);
  for (const std::uint64_t number : {1U, 2U, 9U, 4'096U}) checkName(std::string(input), number);
  checkInformation(std::string(input.substr(0, input.find('\0'))));  // no path holds a zero byte
  const std::string_view sizes = takePart(input);
  checkSizes(sizes, std::string(input));
  return 0;
}
