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

TEST(PathSet, AgreesWithAPlainSearch) {
  std::mt19937 random(3);
  const auto path = [&random] {
    std::string text(1, "ab"[random() % 2]);
    while (random() % 3 != 0) text += "/ab-."[random() % 5];
    return text;
  };
  for (int round = 0; round < 200; ++round) {
    std::vector<std::string> paths;
    while (paths.size() < 20) {
      if (std::string next = path(); !next.ends_with('/')) paths.push_back(next);
    }
    const PathSet set(joined(paths));
    for (int query = 0; query < 50; ++query) {
      const std::string asked = path();
      const auto anyOf = [&paths](const auto& test) { return std::ranges::any_of(paths, test); };
      EXPECT_EQ(set.contains(asked), anyOf([&](const auto& held) { return held == asked; }));
      EXPECT_EQ(set.containsBelow(asked),
                anyOf([&](const auto& held) { return held.starts_with(asked + '/'); }));
      EXPECT_EQ(set.covers(asked), anyOf([&](const auto& held) {
                  return held == asked || asked.starts_with(held + '/');
                }))
          << asked;
    }
  }
}

}  // namespace
}  // namespace broomtide
