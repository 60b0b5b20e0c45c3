#include <string>

#include "context/GitSnapshot.h"
#include "fuzz/Input.h"
#include "trash/MountTable.h"

namespace broomtide::fuzz {
namespace {

std::string stripped(std::string_view path) {
  while (path.starts_with('/')) path.remove_prefix(1);
  while (path.ends_with('/')) path.remove_suffix(1);
  return std::string(path);
}

void checkSet(const std::string& listing, const std::string& asked) {
  const PathSet set(listing);
  std::string reversed;
  for (const std::string_view listed : partsOf(listing, '\0')) {
    reversed = std::string(listed) + '\0' + reversed;
    const std::string path = stripped(listed);
    if (path.empty()) continue;
    require(set.contains(path) && set.covers(path) && set.covers(path + "/x"),
            "what is listed is there, and covers what is below");
    const std::size_t slash = path.find('/');
    require(slash == std::string::npos || set.containsBelow(path.substr(0, slash)),
            "what is listed is below its folders");
  }
  const PathSet other(reversed);
  require(set.contains(asked) == other.contains(asked) &&
              set.containsBelow(asked) == other.containsBelow(asked) &&
              set.covers(asked) == other.covers(asked),
          "the order of a listing does not matter");
  require(!set.contains(asked) || set.covers(asked), "what is there is covered");
}

// Inputs are a location, a listing of what is tracked and one of what is ignored.
void checkStatus(std::string_view input) {
  const std::string location(takePart(input));
  const std::string tracked(takePart(input));
  const std::string ignored(input);
  checkSet(tracked, location);
  checkSet(ignored, location);
  const GitSnapshot snapshot{.root = "/root",
                             .trackedPaths = PathSet(tracked),
                             .ignoredPaths = PathSet(ignored),
                             .isAvailable = true};
  const GitItemStatus file = snapshot.status("/root/" + location, false);
  const GitItemStatus folder = snapshot.status("/root/" + location, true);
  require(file == folder || folder == GitItemStatus::tracked,
          "a folder differs from a file only by what is tracked in it");
  require(snapshot.status("/rooted/" + location, true) == GitItemStatus::unavailable ||
              location.find("..") != std::string::npos,
          "nothing is known of what lies elsewhere");
}

// The bytes are mount points, each ended by a zero byte, in a table as the kernel writes it.
void checkMounts(std::string_view points) {
  std::vector<std::string> expected;
  std::string table;
  for (const std::string_view point : partsOf(points, '\0')) {
    expected.push_back('/' + std::string(point));
    table += "22 1 8:1 / ";
    for (const char byte : expected.back()) {
      char escape[5] = {byte};
      if (std::string_view(" \t\n\\").find(byte) != std::string_view::npos) {
        std::snprintf(escape, sizeof escape, "\\%03o", static_cast<unsigned>(byte));
      }
      table += escape;
    }
    table += " rw shared:1 - ext4 /dev/sda1 rw\n";
  }
  require(MountTable::mountPoints(table) == expected, "what the kernel writes is read");
  MountTable::mountPoints(points);  // whatever is in a table, reading it ends well
}

}  // namespace
}  // namespace broomtide::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  broomtide::fuzz::checkStatus(broomtide::fuzz::text(data, size));
  broomtide::fuzz::checkMounts(broomtide::fuzz::text(data, size));
  return 0;
}
