#include "cleanup/DefaultTrashManager.h"

#include <filesystem>

#include "cleanup/Revalidation.h"
#include "platform/WholeFile.h"
#include "support/FaultyFileManager.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"
#include "support/TreeSnapshot.h"

namespace broomtide {
namespace {

namespace fs = std::filesystem;
using test::snapshotOf;

class Cleanup : public testing::Test {
 protected:
  Cleanup() {
    tree.file("work/app/node_modules/m/index.js", "module");
    tree.file("work/app/package.json", "{}");
    tree.file("outside/precious", "precious");
  }

  ScanCandidate candidate(const std::string& relative) const {
    ScanCandidate result = test::candidateBelow(tree.path("work"), relative);
    result.size = 4096;
    if (result.kind == CandidateKind::directory) result.contentsPolicy = &policy;
    return result;
  }

  CleanupResult clean(const std::vector<ScanCandidate>& candidates) {
    DefaultTrashManager manager(
        files,
        [this](const std::vector<std::string>& roots, const std::stop_token&) {
          askedRoots.push_back(roots);
          return snapshots;
        },
        tree.path("data/Trash"));
    return manager.moveToTrash(candidates, tree.path("work"), stopping.get_token());
  }

  // What happened to each candidate: "moved", or the reason why not.
  std::vector<std::string> outcomes(const std::vector<ScanCandidate>& candidates) {
    const CleanupResult result = clean(candidates);
    EXPECT_EQ(result.moved.size() + result.failures.size(), candidates.size());
    std::vector<std::string> list;
    auto moved = result.moved.begin();
    auto failure = result.failures.begin();
    for (const ScanCandidate& item : candidates) {
      if (failure != result.failures.end() && failure->path == item.relativePath) {
        list.push_back((failure++)->message.text());
      } else if (moved != result.moved.end() && *moved == item) {
        list.push_back("moved");
        ++moved;
      }
    }
    return list;
  }

  std::string outcome(const ScanCandidate& item) { return outcomes({item}).at(0); }

  static constexpr ContentsPolicy policy{.countsFiles = true};
  test::TemporaryTree tree;
  test::FaultyFileManager files;
  std::map<std::string, GitSnapshot> snapshots;
  std::vector<std::vector<std::string>> askedRoots;
  std::stop_source stopping;
};

TEST_F(Cleanup, MovesWithTheInformationWhereItCameFrom) {
  tree.file("work/old file%\n.log", "text");
  const auto folder = candidate("app/node_modules"), file = candidate("old file%\n.log");
  EXPECT_EQ(outcomes({folder, file}), (std::vector<std::string>{"moved", "moved"}));
  EXPECT_EQ(askedRoots, std::vector<std::vector<std::string>>{{}});

  EXPECT_FALSE(fs::exists(folder.url));
  EXPECT_TRUE(fs::exists(tree.path("data/Trash/files/node_modules/m/index.js")));
  std::string info;
  WholeFile::read(files, workingDirectory, tree.path("data/Trash/info/old file%\n.log.trashinfo"),
                  LinkPolicy::doNotFollow, info);
  EXPECT_THAT(info,
              testing::MatchesRegex("\\[Trash Info\\]\nPath=" + tree.path("work") +
                                    "/old%20file%25%0A.log\nDeletionDate=....-..-..T..:..:..\n"));
  std::string sizes;
  WholeFile::read(files, workingDirectory, tree.path("data/Trash/directorysizes"),
                  LinkPolicy::doNotFollow, sizes);
  EXPECT_THAT(sizes, testing::MatchesRegex("4096 [0-9]+ node_modules\n"));
  EXPECT_EQ(fs::status(tree.path("data/Trash")).permissions(), fs::perms::owner_all);
}

// What may have happened since the scan, and what people are then told.
TEST_F(Cleanup, LeavesAloneWhatIsNoLongerWhatWasScanned) {
  using namespace messages;
  struct Row {
    std::string change;  // a shell command in the scanned folder
    std::string_view message;
  };
  const std::vector<Row> rows{
      {"rm -r app/node_modules", gone},
      {"rm -r app", gone},
      {"mv app/node_modules x; ln -s ../x app/node_modules", becameLink},
      {"mv app/node_modules x; ln -s nowhere app/node_modules", becameLink},
      {"mv app/node_modules ../outside; ln -s ../../outside/node_modules app/node_modules",
       noLongerInside},
      {"mv app ../outside; ln -s ../outside/app app", noLongerInside},
      {"mv app/node_modules x; mkdir app/node_modules", replaced},
      {"mv app/node_modules x; echo file > app/node_modules", replaced},
      {"touch app/node_modules/new", modified},
      {"touch -d 2001-01-01 app/node_modules", modified},
      {"touch -d 1600-01-01 app/node_modules", modified},
      {"touch app/node_modules/m/new", "moved"},  // deeper changes that say nothing
      {"mkdir app/node_modules/m/.git", contentsChanged},
      {"touch app/node_modules/m/a.sqlite", contentsChanged},
      {"mv app x; ln -s x app", "moved"},  // the same item, still inside
      {"true", "moved"},
  };
  const auto source = tree.path("work"), kept = tree.path("kept");
  for (const Row& row : rows) {
    fs::copy(source, kept, fs::copy_options::recursive);
    const ScanCandidate scanned = candidate("app/node_modules");
    tree.run(row.change, "work");
    const auto before = snapshotOf(tree.root());
    EXPECT_EQ(outcome(scanned), row.message) << row.change;
    if (row.message != "moved") {
      EXPECT_EQ(snapshotOf(tree.root()), before) << row.change;
    }
    tree.run("rm -rf work outside/app outside/node_modules data; mv kept work");
  }
  EXPECT_EQ(outcome([&] {
              ScanCandidate root = candidate("app");
              root.url = source;
              return root;
            }()),
            noLongerInside);
}

TEST_F(Cleanup, DatesMayDifferByAMillisecond) {
  using std::chrono::nanoseconds;
  ScanCandidate item = candidate("app/node_modules");
  const Date date = *item.modificationDate;
  for (const Date scanned :
       {date + nanoseconds(1'000'001), date - nanoseconds(1'000'001), Date::min()}) {
    item.modificationDate = scanned;
    EXPECT_EQ(outcome(item), messages::modified) << scanned.time_since_epoch().count();
  }
  // A date that is too large to be held says nothing of what happened since.
  tree.run("touch -d 2300-01-01 app/node_modules", "work");
  EXPECT_EQ(outcome(candidate("app/node_modules")), messages::modified);
  fs::last_write_time(item.url, fs::file_time_type::clock::from_sys(date));
  item.modificationDate = date - nanoseconds(1'000'000);
  EXPECT_EQ(outcome(item), "moved");

  tree.file("work/undated", "x");
  ScanCandidate undated = candidate("undated");
  undated.modificationDate.reset();
  tree.run("touch -d 2001-01-01 undated", "work");
  EXPECT_EQ(outcome(undated), "moved");
}

TEST_F(Cleanup, AsksGitOnceAndBelievesIt) {
  using enum GitItemStatus;
  const std::string repository = tree.path("work/app");
  const auto answer = [&](const char* tracked, const char* ignored, bool isAvailable) {
    snapshots[repository] = {.root = repository,
                             .trackedPaths = PathSet(std::string(tracked) + '\0'),
                             .ignoredPaths = PathSet(std::string(ignored) + '\0'),
                             .isAvailable = isAvailable};
  };
  ScanCandidate item = candidate("app/node_modules");
  item.gitRoot = repository + "/../app/";
  ScanCandidate other = candidate("app/package.json");
  other.gitRoot = item.gitRoot;

  struct Row {
    GitItemStatus recorded;
    const char* tracked;
    const char* ignored;
    bool isAvailable;
    std::string_view message;
  };
  for (const Row& row : std::vector<Row>{
           {ignored, "", "node_modules", false, messages::gitUnknown},
           {ignored, "node_modules/m/index.js", "", true, messages::nowTracked},
           {untracked, "node_modules/m/index.js", "", true, messages::nowTracked},
           {ignored, "", "", true, messages::noLongerIgnored},
       }) {
    item.gitStatus = other.gitStatus = row.recorded;
    answer(row.tracked, row.ignored, row.isAvailable);
    EXPECT_EQ(outcome(item), row.message);
  }
  snapshots.clear();
  EXPECT_EQ(outcome(item), messages::gitUnknown);

  answer("", "node_modules", true);
  item.gitStatus = ignored;
  item.otherGitRoots = {tree.path("work")};  // has it in its index, whatever the nearer one says
  snapshots[tree.path("work")] = {.root = tree.path("work"),
                                  .trackedPaths = PathSet(std::string("app/node_modules/m")),
                                  .ignoredPaths = {},
                                  .isAvailable = true};
  EXPECT_EQ(outcome(item), messages::nowTracked);
  EXPECT_EQ(askedRoots.back(), (std::vector{tree.path("work"), *item.gitRoot}));
  snapshots[tree.path("work")].isAvailable = false;
  EXPECT_EQ(outcome(item), messages::gitUnknown);
  snapshots[tree.path("work")].isAvailable = true;

  // In no repository below the scanned folder, which lies in one itself.
  other.gitRoot.reset();
  other.otherGitRoots = {tree.path("work")};
  snapshots[tree.path("work")].trackedPaths = PathSet(std::string("app/package.json"));
  EXPECT_EQ(outcome(other), messages::nowTracked);
  snapshots.erase(tree.path("work"));
  EXPECT_EQ(outcome(other), messages::gitUnknown);

  other.gitRoot = item.gitRoot;
  other.otherGitRoots.clear();
  item.otherGitRoots.clear();
  askedRoots.clear();
  other.gitStatus = unavailable;
  EXPECT_EQ(outcomes({item, other}), (std::vector<std::string>{"moved", "moved"}));
  EXPECT_EQ(askedRoots, (std::vector<std::vector<std::string>>{{*item.gitRoot}}));
}

TEST_F(Cleanup, AGitThatCannotBeAskedHoldsBackOnlyRepositories) {
  ScanCandidate inRepository = candidate("app/node_modules");
  inRepository.gitRoot = tree.path("work/app");
  DefaultTrashManager manager(
      files,
      [](const auto&...) -> std::map<std::string, GitSnapshot> {
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
      },
      tree.path("data/Trash"));
  const CleanupResult result =
      manager.moveToTrash({inRepository, candidate("app/package.json")}, tree.path("work"), {});
  ASSERT_EQ(result.failures.size(), 1U);
  EXPECT_EQ(result.failures[0].message, Message{messages::gitUnknown});
  EXPECT_EQ(result.moved.size(), 1U);
}

// Whoever made it after the scan may have added everything to it.
TEST_F(Cleanup, LeavesAloneWhatARepositoryLiesAroundThatWasNotThere) {
  using namespace messages;
  for (const auto& [folder, reason] :
       std::map<std::string, std::string_view>{{"work", gitUnknown},
                                               {"work/app", gitUnknown},
                                               {"work/app/node_modules", contentsChanged}}) {
    for (const char* mark : {"mkdir .git", "touch .git", "ln -s nowhere .git"}) {
      tree.run(mark, folder);
      EXPECT_EQ(outcome(candidate("app/node_modules")), reason) << folder << mark;
      tree.run("rm -r .git", folder);
    }
  }
  tree.run("mkdir .git", "work");
  ScanCandidate download = candidate("app/node_modules");
  download.evidence = {Message{messages::downloadsRule}};
  EXPECT_EQ(outcome(download), "moved");
}

// Something may be mounted in it meanwhile, which would be erased with the Trash.
TEST_F(Cleanup, MovesNoFolderWhileNobodyKnowsWhatIsMounted) {
  tree.folder("work/app/dist");
  files.onChange = [reads = 0](const std::string& called) mutable {
    const bool fails = called == "openFile /proc/self/mountinfo" && reads++ > 0;
    return fails ? std::make_error_code(std::errc::io_error) : std::error_code();
  };
  EXPECT_EQ(outcomes({candidate("app/node_modules"), candidate("app/dist")}),
            (std::vector<std::string>{"moved", std::string(messages::notMoved)}));
}

TEST_F(Cleanup, CancellingLeavesTheRestAlone) {
  std::vector<ScanCandidate> items;
  for (const char* name : {"1", "2", "3", "4", "5"}) {
    tree.file("work/" + std::string(name));
    items.push_back(candidate(name));
  }
  files.onChange = [this](const std::string& change) {
    if (change == "rename 3 3") stopping.request_stop();
    return std::error_code();
  };
  const std::string left(messages::cleanupCancelled);
  EXPECT_EQ(outcomes(items), (std::vector<std::string>{"moved", "moved", "moved", left, left}));
  askedRoots.clear();
  EXPECT_EQ(outcomes({items[3]}), std::vector<std::string>{left});
  EXPECT_EQ(askedRoots.size(), 1U);
}

}  // namespace
}  // namespace broomtide
