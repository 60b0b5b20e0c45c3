// What Git says, when it is believed, and what is made of it.

#include <sys/stat.h>

#include <filesystem>

#include "context/GitInspector.h"
#include "context/GitSnapshot.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using enum GitItemStatus;
using test::TemporaryTree;

class Git : public testing::Test {
 protected:
  GitSnapshot inspect(const std::string& root) {
    return GitInspector::inspect({root}, {}, 1min).begin()->second;
  }

  TemporaryTree tree;
};

TEST_F(Git, TellsTrackedFromIgnoredFromUntracked) {
  tree.file("repo/.gitignore", "node_modules/\n*.log\n!kept.log\n");
  tree.file("repo/kept.log");
  tree.file("repo/src/caf\xe9/\xc3\xbc\n\"x");
  tree.repository("repo");
  tree.file("repo/node_modules/a/b");
  tree.file("repo/old.log");
  tree.file("repo/dist/x");
  tree.run(
      "mkdir -p dist/empty node_modules2 && git add -f node_modules/a &&"
      "git worktree add -q next.log/wt",
      "repo");

  const GitSnapshot snapshot = inspect(tree.path("repo"));
  ASSERT_TRUE(snapshot.isAvailable);
  const auto status = [&](const std::string& path, bool isDirectory) {
    return snapshot.status(tree.path("repo/" + path), isDirectory);
  };
  EXPECT_EQ(status("kept.log", false), tracked);
  EXPECT_EQ(status("src/caf\xe9", true), tracked);
  EXPECT_EQ(status("src/caf\xe9/\xc3\xbc\n\"x", false), tracked);
  EXPECT_EQ(status("node_modules", true), tracked);
  EXPECT_EQ(status("old.log", false), ignored);
  EXPECT_EQ(status("dist", true), untracked);
  EXPECT_EQ(status("next.log", true), tracked);  // in a linked work tree
}

TEST_F(Git, IsUnavailableWhereGitFails) {
  tree.folder("plain");
  tree.file("lost/.git", "gitdir: /nowhere/at/all\n");
  tree.file("broken/.git/HEAD", "nonsense");
  tree.repository("corrupt");
  tree.file("corrupt/.git/index", "DIRC nonsense");
  for (const char* name : {"plain", "lost", "broken", "corrupt", "missing"}) {
    EXPECT_FALSE(inspect(tree.path(name)).isAvailable) << name;
  }
  EXPECT_TRUE(GitInspector::inspect({}, {}).empty());
}

// Git would answer for the repository around it, which knows nothing of what the inner one tracks.
TEST_F(Git, IsUnavailableWhereItWouldAnswerForAnotherRepository) {
  tree.file("outer/.gitignore", "inner:x/\n");
  tree.repository("outer");
  for (const char* damage :
       {"rm HEAD", "rm -r objects", "rm -r refs", ": > HEAD", "echo nonsense > HEAD",
        "rm HEAD && mkdir HEAD", "rm HEAD && ln -s /etc/passwd HEAD", "rm -r refs && touch refs",
        "echo /nowhere > commondir", "rm -r HEAD objects refs", "rm -r *",
        "mv ../.git ../store && echo gitdir: store > ../.git && : > ../store/HEAD"}) {
    tree.run("rm -rf inner:x && mkdir inner:x && cd inner:x && git init -q && touch f && git add f",
             "outer");
    EXPECT_TRUE(inspect(tree.path("outer/inner:x")).isAvailable) << damage;
    tree.run(damage, "outer/inner:x/.git");
    EXPECT_FALSE(inspect(tree.path("outer/inner:x")).isAvailable) << damage;
  }
}

TEST_F(Git, TellsWhatAllRepositoriesAroundAFolderTrack) {
  tree.file("a/b/c/far/x");
  tree.repository("a");
  tree.file("a/b/c/near/x");
  tree.file("a/b/csv");
  tree.repository("a/b");
  tree.file("a/b/c/x");
  const std::string folder = tree.path("a/b/c");
  const GitSnapshot snapshot = inspect(rootsAround(folder));
  for (const auto& [name, status] : std::map<std::string, GitItemStatus>{
           {"/far", tracked}, {"/near", tracked}, {"/x", untracked}, {"", untracked}}) {
    EXPECT_EQ(snapshot.status(folder + name, true), status) << name;
  }
  // Git does not say whether an index was cut off in a place that nobody asked about.
  for (const char* damage : {"truncate -s 50 index", "rm HEAD",
                             "mv ../.git ../store;"
                             "ln -s store ../.git",
                             "rm ../.git; mkfifo ../.git"}) {
    tree.run(damage, "a/.git");
    EXPECT_FALSE(inspect(rootsAround(folder)).isAvailable) << damage;
  }
}

TEST(GitJudgement, IsTheMostCautious) {
  struct Row {
    const char* judging;
    GitItemStatus said;
    GitItemStatus between;
    GitItemStatus outside;
    GitJudgement judged;
  };
  for (const Row& row : std::vector<Row>{
           {"/r", ignored, ignored, untracked, {ignored, true}},
           {"/r", ignored, untracked, ignored, {untracked, true}},
           {"/r", untracked, ignored, ignored, {untracked, true}},
           {"/r", ignored, unavailable, untracked, {unavailable, true}},
           {"/r", ignored, untracked, unavailable, {unavailable, true}},
           {"/r", unavailable, unavailable, tracked, {tracked, true}},
           {"", ignored, ignored, untracked, {unavailable, false}},
           {"", ignored, ignored, unavailable, {unavailable, true}},
       }) {
    const std::map<std::string, GitItemStatus> said{
        {"/r", row.said}, {"/r/in", row.between}, {"/r/..", row.outside}};
    const std::string root = row.judging;
    EXPECT_EQ(statusAmong(root.empty() ? nullptr : &root, {"/r/in", "/r/.."},
                          [&](const std::string& asked) { return said.at(asked); }),
              row.judged);
  }
}

// Many silent repositories cost little more than a few.
TEST(GitBudget, ShrinksWithWhatIsLost) {
  GitCommand::Budget budget(5min);
  EXPECT_EQ(budget.next()->time, 5min);
  for (const std::chrono::milliseconds idleTime : {30s, 2s, 2s}) {
    ASSERT_EQ(budget.next()->idleTime, idleTime);
    budget.lose(idleTime);
  }
  EXPECT_LT(budget.next()->time, 5min);
  budget.lose(10min);
  EXPECT_FALSE(budget.next());
}

TEST(GitAnswer, IsDoubted) {
  using namespace std::string_literals;
  using Rows = std::vector<std::pair<std::string, bool>>;
  for (const auto& [listing, isIndex] : Rows{
           {"", true},
           {".gitignore\0a\0a\0a/b\0a0\0\xc3\xa4\0"s, true},  // one path twice while merging
           {"...\0..a\0a/b\0"s, true},
           {"b\0a\0"s, false},
           {"\0a\0"s, false},
           {"./\0"s, false},
           {std::string(4095, 'x') + '\0', true},
           {std::string(4096, 'x') + '\0', false},
           {"../a\0"s, false},
           {"/a\0"s, false},
           {"a\0b"s, false},
       }) {
    EXPECT_EQ(GitCommand::isListingOfIndex(listing), isIndex) << listing;
  }
  for (const auto& [listing, isBelow] : Rows{
           {"", true}, {"a/../b\0..a\0.../\0"s, true}, {"../\0"s, false}, {"a\0../b/\0"s, false}}) {
    EXPECT_EQ(GitCommand::isListingBelow(listing), isBelow) << listing;
  }
  for (const auto& [messages, hasFailed] :
       Rows{{"", false},
            {"warning: error: of a hook\nhint: fatal: x", false},
            {"fatal: x", true},
            {"warning: x\nerror: y\n", true}}) {
    EXPECT_EQ(GitCommand::tellsOfFailure(messages), hasFailed) << messages;
  }
}

TEST_F(Git, IsUnavailableWithoutAGitTool) {
  GitInspection inspection(std::nullopt, 1min, {});
  inspection.add("/r");
  EXPECT_FALSE(inspection.snapshot("/r")->isAvailable);
  EXPECT_EQ(inspection.snapshot("/never/added"), nullptr);
}

TEST_F(Git, IsLookedForInItsUsualPlaces) {
  const std::string tool = tree.file("usr/bin/git");
  FileManager& files = systemFileManager();
  EXPECT_EQ(GitCommand::locate(files, tree.root().c_str()), "/usr/bin/git");  // not executable
  ASSERT_EQ(::chmod(tool.c_str(), 0755), 0);
  EXPECT_EQ(GitCommand::locate(files, tree.root().c_str()), tool);
  EXPECT_EQ(GitCommand::locate(files, ""), "/usr/bin/git");
  EXPECT_EQ(GitCommand::locate(files, nullptr), "/usr/bin/git");
}

std::string joined(const std::vector<std::string>& paths) {
  std::string result;
  for (const std::string& path : paths) result.append(path).push_back('\0');
  return result;
}

TEST(GitSnapshot, ClassifiesEveryLocation) {
  const GitSnapshot snapshot{
      .root = "/r/./repo",
      .trackedPaths =
          PathSet(joined({"src/main.c", "vendor/lib/a", "caf\xe9/x", "dist-x", "bin/x", "bin.x"})),
      .ignoredPaths = PathSet(joined({"build/", "debug.log", "deep/er/cache/", "nested/"})),
      .isAvailable = true};
  const std::map<GitItemStatus, std::vector<std::string>> folders{
      {tracked, {"/r/repo/src", "/r/repo/vendor", "/r/repo/caf\xe9", "/r/repo/bin"}},
      {ignored, {"/r/repo/build", "/r/repo/deep/er/cache/z", "/r/repo/../repo/build/"}},
      {untracked,
       {"/r/repo/vendor/li", "/r/repo/dist", "/r/repo/build2", "/r/repo/deep/er", "/r/repo"}},
      {unavailable, {"/r/repository", "/r"}}};
  for (const auto& [status, locations] : folders) {
    for (const std::string& location : locations)
      EXPECT_EQ(snapshot.status(location, true), status) << location;
  }
  EXPECT_EQ(snapshot.status("/r/repo/src/main.c", false), tracked);
  EXPECT_EQ(snapshot.status("/r/repo/src", false), untracked);
  EXPECT_EQ(snapshot.status("/r/repo/debug.log", false), ignored);
  EXPECT_EQ(snapshot.status("/r/repo/build/x/y", false), ignored);
  const GitSnapshot silent{.root = "/r/repo", .trackedPaths = {}, .ignoredPaths = {}};
  EXPECT_EQ(silent.status("/r/repo/build", true), unavailable);
}

}  // namespace
}  // namespace broomtide
