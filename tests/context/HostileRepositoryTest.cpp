#include <sys/stat.h>

#include <filesystem>
#include <thread>

#include "context/GitInspector.h"
#include "platform/Confinement.h"
#include "support/OwnProcess.h"
#include "support/TemporaryTree.h"
#include "support/TreeSnapshot.h"

// A repository that somebody else has made is listed. Whatever it is made of, no program of its
// choice runs, nothing is written, and the listing ends.
namespace broomtide {
namespace {

using namespace std::chrono_literals;
using GitCommand::Listing;

class HostileRepository : public testing::Test {
 protected:
  HostileRepository() {
    const std::string script = tree.file("trap", "#!/bin/sh\ntouch '" + tree.path("ran") + "'\n");
    EXPECT_EQ(::chmod(script.c_str(), 0755), 0);
    tree.file("elsewhere/build/object");
    tree.file("repo/.gitignore", "build\n");
    tree.file("repo/src/a");
    tree.repository("repo");
    tree.file("repo/build/object");
  }

  bool hasTrapRun() const { return std::filesystem::exists(tree.path("ran")); }

  // Runs a command in the repository, in which $TRAP is a program that must never run.
  void prepare(const std::string& command) const {
    tree.run("TRAP='" + tree.path("trap") + "'; " + command, "repo");
  }

  // Gives the repository an index in which an entry stands for the whole folder "sparse".
  void makeSparse() const {
    for (const char* path : {"repo/kept/file", "repo/sparse/one/file"}) tree.file(path);
    tree.repository("repo");
    prepare("git sparse-checkout init --cone --sparse-index && git sparse-checkout set kept");
  }

  GitSnapshot inspect(std::chrono::milliseconds limit = 1min) const {
    return GitInspector::inspect({root}, {}, limit).at(root);
  }

  // Lists as the program does, but without one of its protections.
  void listWithout(const std::string& protection) const {
    for (const Listing listing : {Listing::tracked, Listing::ignored}) {
      ChildProcess::Command command = GitCommand::listingCommand(git, root, listing);
      std::erase(command.environment, protection);
      if (const auto place = std::ranges::find(command.arguments, protection);
          place != command.arguments.end()) {
        command.arguments.erase(place - 1, place + 1);  // with the -c before it
      }
      ChildProcess::run(command, {.time = 1min}, {});
    }
  }

  test::TemporaryTree tree;
  const std::string root = tree.path("repo");
  const std::string git = GitCommand::executable().value();
};

TEST_F(HostileRepository, RunsNothingAndChangesNothing) {
  struct Row {
    const char* name;
    const char* preparation;
    bool isAvailable = true;
  };
  const std::vector<Row> rows{
      {"a monitor of its files", "git config core.fsmonitor $TRAP"},
      {"one that was at work before",
       "git -c core.fsmonitor=true update-index --fsmonitor; git config core.fsmonitor $TRAP"},
      {"a monitor in an included file",
       "printf '[core]\\n fsmonitor = %s\\n' $TRAP > .git/more; git config include.path more"},
      {"a monitor for one work tree",
       "git config extensions.worktreeConfig true; git config --worktree core.fsmonitor $TRAP"},
      {"a pager", "git config pager.ls-files true; git config core.pager $TRAP"},
      {"another command of the same name", "git config alias.ls-files \"!$TRAP\""},
      {"hooks",
       "for hook in post-index-change post-checkout pre-auto-gc fsmonitor-watchman; do"
       " cp $TRAP .git/hooks/$hook; done; git config core.hooksPath .git/hooks"},
      {"filters",
       "echo '* filter=x diff=x merge=x text=auto' > .gitattributes;"
       " for what in clean smudge process; do git config filter.x.$what $TRAP; done;"
       " git config diff.x.textconv $TRAP; git config filter.x.required true"},
      {"traces",
       "for what in normal perf event; do"
       " git config trace2.${what}Target \"$PWD/../traced\"; done"},
      {"a submodule with a monitor",
       "cp -r . ../inner; mv ../inner sub; git add sub; git config submodule.recurse true;"
       " git -C sub config core.fsmonitor $TRAP"},
      {"a repository of its own without a work tree",
       "cp -r .git/* .; rm -r .git; mkdir .git; git config -f config core.bare false;"
       " git config -f config core.worktree .; git config -f config core.fsmonitor $TRAP"},
      {"an index in two parts",
       "git update-index --split-index; touch -d 2001-01-01 .git/sharedindex.*"},
      {"a cache of what is not tracked",
       "git config core.untrackedCache true; git update-index --untracked-cache; git status;"
       " touch -d 2001-01-01 .git/index"},
      {"dates that make Git look again",
       "touch -d 2001-01-01 src/a .gitignore src .git .git/index"},
      {"a repository elsewhere",
       "mv .git ../git; echo 'gitdir: ../git' > .git;"
       " git --git-dir=../git config core.fsmonitor $TRAP"},
      {"files elsewhere", "git config core.worktree \"$PWD/../elsewhere\"", false},
      {"an index larger than any memory", "truncate -s 1T .git/index", false},
      {"an index cut off", "truncate -s 50 .git/index", false},
      {"an index that is a folder", "rm .git/index; mkdir .git/index", false},
      {"lists of ignored files without an end",
       "ln -s /dev/zero .git/info/more; git config core.excludesFile .git/info/more;"
       " truncate -s 1T .git/info/exclude",
       false},
      {"a configuration without an end", "git config include.path /dev/zero", false},
      {"a configuration that includes itself", "git config include.path config", false},
  };
  tree.run("cp -a repo kept");
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    prepare(row.preparation);
    const auto before = test::snapshotOf(tree.root());
    EXPECT_EQ(inspect().isAvailable, row.isAvailable);
    EXPECT_EQ(test::snapshotOf(tree.root()), before);
    EXPECT_FALSE(hasTrapRun());
    tree.run("rm -rf repo git ran traced inner; cp -a kept repo");
  }
}

TEST_F(HostileRepository, EndsWhereAPipeIsInTheWay) {
  for (const char* path : {".gitignore", "src/.gitignore", ".git/HEAD", ".git/config", ".git/index",
                           ".git/commondir", ".git/info/exclude"}) {
    tree.run("mkdir -p kept; cp -a repo/. kept; rm -f repo/" + std::string(path));
    tree.pipe("repo/" + std::string(path));
    EXPECT_FALSE(inspect(300ms).isAvailable) << path;
    tree.run("rm -rf repo; mv kept repo");
  }
}

// Git does not stop at what it is told; so it could not do any of this if it were not told.
TEST_F(HostileRepository, IsHeldBackTwice) {
  if (!test::hasLandlock()) GTEST_SKIP() << "this kernel cannot keep Git from running programs";
  prepare("git config core.fsmonitor $TRAP");
  const std::string protection = "core.fsmonitor=false";
  std::jthread([&] {
    Confinement::confineThread(git);
    listWithout(protection);
  }).join();
  EXPECT_FALSE(hasTrapRun());
  listWithout(protection);
  EXPECT_TRUE(hasTrapRun()) << "the attack did not work without the protection either";
}

TEST_F(HostileRepository, CannotFetchMissingObjects) {
  makeSparse();
  prepare(
      "git config core.repositoryFormatVersion 1 && git config extensions.partialClone origin "
      "&& git config remote.origin.url ssh://nowhere.invalid/x "
      "&& git config remote.origin.promisor true && git config core.sshCommand $TRAP"
      " && tree=$(git rev-parse HEAD:sparse) && "
      "rm .git/objects/$(echo $tree | cut -c1-2)/$(echo $tree | cut -c3-)");
  // Git ends well although it could not list everything, which must not be taken for an answer.
  EXPECT_FALSE(inspect().isAvailable);
  EXPECT_FALSE(hasTrapRun());
  listWithout("GIT_ALLOW_PROTOCOL=");
  EXPECT_TRUE(hasTrapRun()) << "the attack did not work without the protection either";
}

}  // namespace
}  // namespace broomtide
