#include "context/GitInspector.h"

#include <sys/stat.h>

#include <filesystem>

#include "context/GitInspection.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using enum GitItemStatus;
using test::TemporaryTree;

class Git : public testing::Test {
 protected:
  GitSnapshot inspect(const std::string& root, std::chrono::milliseconds limit = 1min) {
    return GitInspector::inspect({root}, {}, limit).at(root);
  }

  // A program that records that it was run.
  std::string trap() {
    const std::string script = tree.file("trap", "#!/bin/sh\ntouch '" + tree.path("ran") + "'\n");
    EXPECT_EQ(::chmod(script.c_str(), 0755), 0);
    return script;
  }
  bool hasTrapRun() const { return std::filesystem::exists(tree.path("ran")); }

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
  tree.run("mkdir -p dist/empty node_modules2 && git add -f node_modules/a", "repo");

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

TEST_F(Git, IsUnavailableWithoutAGitTool) {
  GitInspection inspection(std::nullopt, 1min, {});
  inspection.add("/r");
  EXPECT_FALSE(inspection.snapshot("/r")->isAvailable);
  EXPECT_EQ(inspection.snapshot("/never/added"), nullptr);
}

TEST_F(Git, IsLookedForInItsUsualPlaces) {
  const std::string tool = tree.file("usr/bin/git");
  FileManager& files = systemFileManager();
  EXPECT_EQ(GitInspector::locate(files, tree.root().c_str()), "/usr/bin/git");  // not executable
  ASSERT_EQ(::chmod(tool.c_str(), 0755), 0);
  EXPECT_EQ(GitInspector::locate(files, tree.root().c_str()), tool);
  EXPECT_EQ(GitInspector::locate(files, ""), "/usr/bin/git");
  EXPECT_EQ(GitInspector::locate(files, nullptr), "/usr/bin/git");
}

TEST_F(Git, IsGivenUpWhenItNeverEnds) {
  tree.repository("repo");
  tree.pipe("repo/.gitignore");
  EXPECT_FALSE(inspect(tree.path("repo"), 300ms).isAvailable);
}

// Runs a listing as the program does, and once more without one of its protections to see that the
// attack works at all.
class HostileRepository : public Git {
 protected:
  void list(const std::string& without) {
    for (const auto listing : {GitInspector::Listing::tracked, GitInspector::Listing::ignored}) {
      ChildProcess::Command command = GitInspector::listingCommand(
          GitInspector::executable().value(), tree.path("repo"), listing);
      std::erase(command.environment, without);
      if (const auto place = std::ranges::find(command.arguments, without);
          place != command.arguments.end()) {
        command.arguments.erase(place - 1, place + 1);  // with the -c before it
      }
      ChildProcess::run(command, 1min, {});
    }
  }
};

TEST_F(HostileRepository, CannotRunItsFileSystemMonitor) {
  tree.file("repo/file");
  tree.repository("repo");
  tree.run("git config core.fsmonitor '" + trap() + "'", "repo");
  list("");
  EXPECT_FALSE(hasTrapRun());
  list("core.fsmonitor=false");
  EXPECT_TRUE(hasTrapRun()) << "the attack did not work without the protection either";
}

TEST_F(HostileRepository, CannotFetchMissingObjects) {
  for (const char* path : {"kept/file", "sparse/one/file"}) tree.file(std::string("repo/") + path);
  tree.repository("repo");
  tree.run(
      "git sparse-checkout init --cone --sparse-index && git sparse-checkout set kept && "
      "git config core.repositoryFormatVersion 1 && git config extensions.partialClone origin "
      "&& git config remote.origin.url ssh://nowhere.invalid/x "
      "&& git config remote.origin.promisor true && git config core.sshCommand '" +
          trap() +
          "' && tree=$(git rev-parse HEAD:sparse) && "
          "rm .git/objects/$(echo $tree | cut -c1-2)/$(echo $tree | cut -c3-)",
      "repo");
  list("");
  EXPECT_FALSE(hasTrapRun());
  // Git ends well although it could not list everything, which must not be taken for an answer.
  EXPECT_FALSE(inspect(tree.path("repo")).isAvailable);
  list("GIT_ALLOW_PROTOCOL=");
  EXPECT_TRUE(hasTrapRun()) << "the attack did not work without the protection either";
}

}  // namespace
}  // namespace broomtide
