#include <set>
#include <string>

#include "context/GitInspector.h"
#include "context/GitSnapshot.h"
#include "core/Paths.h"
#include "fuzz/Input.h"

namespace broomtide::fuzz {
namespace {

// The paths of a listing, looked through one by one.
class Listing {
 public:
  explicit Listing(std::string_view text) {
    for (std::string_view path : partsOf(text, '\0')) {
      while (path.starts_with('/')) path.remove_prefix(1);
      while (path.ends_with('/')) path.remove_suffix(1);
      if (!path.empty()) paths_.emplace(path);
    }
  }

  bool contains(const std::string& path) const { return paths_.count(path) > 0; }

  bool containsBelow(const std::string& folder) const {
    return std::ranges::any_of(paths_,
                               [&](const auto& path) { return path.starts_with(folder + '/'); });
  }

  bool covers(const std::string& path) const {
    return contains(path) || std::ranges::any_of(paths_, [&](const auto& listed) {
             return path.starts_with(listed + '/');
           });
  }

 private:
  std::set<std::string> paths_;
};

GitItemStatus expectedStatus(const Listing& tracked, const Listing& ignored,
                             const std::string& root, const std::string& location,
                             bool isDirectory) {
  const std::string folder = paths::standardized(root);
  const std::string item = paths::standardized(location);
  if (item == folder) return GitItemStatus::untracked;
  if (!item.starts_with(folder + '/')) return GitItemStatus::unavailable;
  const std::string path = item.substr(folder.size() + 1);
  if (tracked.contains(path)) return GitItemStatus::tracked;
  if (isDirectory && tracked.containsBelow(path)) return GitItemStatus::tracked;
  return ignored.covers(path) ? GitItemStatus::ignored : GitItemStatus::untracked;
}

void checkPathSet(const std::string& listing, const std::string& asked) {
  const Listing expected(listing);
  const PathSet set(listing);
  require(set.contains(asked) == expected.contains(asked), "a set contains what is listed");
  require(set.containsBelow(asked) == expected.containsBelow(asked),
          "a set contains something below a folder when it is listed");
  require(set.covers(asked) == expected.covers(asked),
          "a set covers what is listed and what is below it");
}

// Inputs are a root, a location, a listing of what is tracked and one of what is ignored.
void checkStatus(std::string_view input) {
  const std::string root(takePart(input));
  const std::string location(takePart(input));
  const std::string tracked(takePart(input));
  const std::string ignored(input);
  checkPathSet(tracked, location);
  checkPathSet(ignored, location);
  GitSnapshot snapshot{
      .root = root, .trackedPaths = PathSet(tracked), .ignoredPaths = PathSet(ignored)};
  for (const std::string& asked : {location, root + '/' + location}) {
    for (const bool isDirectory : {false, true}) {
      snapshot.isAvailable = false;
      require(snapshot.status(asked, isDirectory) == GitItemStatus::unavailable,
              "nothing is known without Git");
      snapshot.isAvailable = true;
      require(snapshot.status(asked, isDirectory) ==
                  expectedStatus(Listing(tracked), Listing(ignored), root, asked, isDirectory),
              "a status agrees with the listings");
    }
  }
}

void checkMessages(std::string_view messages) {
  const bool expected = std::ranges::any_of(partsOf(messages, '\n'), [](auto line) {
    return line.substr(0, 6) == "error:" || line.substr(0, 6) == "fatal:";
  });
  require(GitCommand::tellsOfFailure(messages) == expected,
          "a failure is a line that begins with its word");
}

}  // namespace
}  // namespace broomtide::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  broomtide::fuzz::checkStatus(broomtide::fuzz::text(data, size));
  broomtide::fuzz::checkMessages(broomtide::fuzz::text(data, size));
  return 0;
}
