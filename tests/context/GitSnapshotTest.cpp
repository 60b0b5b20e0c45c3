#include "context/GitSnapshot.h"

#include <random>
#include <set>

namespace broomtide {
namespace {

using enum GitItemStatus;

std::string joined(const std::vector<std::string>& paths) {
  std::string result;
  for (const std::string& path : paths) result.append(path).push_back('\0');
  return result;
}

TEST(GitSnapshot, ClassifiesEveryLocation) {
  const GitSnapshot snapshot{
      .root = "/r/./repo",
      .trackedPaths = PathSet(joined({"src/main.c", "vendor/lib/a", "caf\xe9/x", "dist-x"})),
      .ignoredPaths = PathSet(joined({"build/", "debug.log", "deep/er/cache/", "nested/"})),
      .isAvailable = true};
  struct Case {
    std::string location;
    bool isDirectory;
    GitItemStatus status;
  };
  const std::vector<Case> cases{
      {"/r/repo/src/main.c", false, tracked},
      {"/r/repo/src", true, tracked},
      {"/r/repo/src", false, untracked},
      {"/r/repo/vendor", true, tracked},
      {"/r/repo/vendor/li", true, untracked},
      {"/r/repo/caf\xe9", true, tracked},
      {"/r/repo/dist", true, untracked},
      {"/r/repo/build", true, ignored},
      {"/r/repo/build/x/y", false, ignored},
      {"/r/repo/build2", true, untracked},
      {"/r/repo/debug.log", false, ignored},
      {"/r/repo/deep/er/cache/z", true, ignored},
      {"/r/repo/deep/er", true, untracked},
      {"/r/repo/../repo/build/", true, ignored},
      {"/r/repo", true, untracked},
      {"/r/repository", true, unavailable},
      {"/r", true, unavailable},
  };
  for (const Case& item : cases) {
    EXPECT_EQ(snapshot.status(item.location, item.isDirectory), item.status) << item.location;
  }
  const GitSnapshot silent{.root = "/r/repo", .trackedPaths = {}, .ignoredPaths = {}};
  EXPECT_EQ(silent.status("/r/repo/build", true), unavailable);
}

}  // namespace
}  // namespace broomtide
