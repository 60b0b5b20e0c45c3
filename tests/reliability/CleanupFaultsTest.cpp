#include <filesystem>
#include <map>
#include <set>

#include "cleanup/DefaultTrashManager.h"
#include "cleanup/JSONHistoryStore.h"
#include "cleanup/Revalidation.h"
#include "core/Uuid.h"
#include "platform/FileIdentity.h"
#include "reliability/EveryFault.h"
#include "support/TrashReader.h"
#include "support/TreeSnapshot.h"

namespace broomtide {
namespace {

namespace fs = std::filesystem;
using test::EveryFault;
using test::snapshotOf;

class CleanupFaults : public EveryFault {
 protected:
  CleanupFaults() {
    tree.file("work/app/node_modules/m/index.js", "module");
    tree.link("../../kept", "work/app/node_modules/link");
    tree.file("work/app/package.json", "{}");
    tree.file("work/old.log", "log");
    tree.file("work/kept/file", "kept");
    tree.file("outside/precious", "precious");
    for (const char* path : {"app/node_modules", "old.log"}) candidates.push_back(candidate(path));
    candidates[0].gitRoot = tree.path("work/app");
    candidates[0].gitStatus = GitItemStatus::ignored;
    GitSnapshot& snapshot = snapshots[tree.path("work/app")];
    snapshot.root = tree.path("work/app");
    snapshot.ignoredPaths = PathSet(std::string("node_modules\0", 13));
    snapshot.isAvailable = true;
  }

  ScanCandidate candidate(const std::string& relative) const {
    FileAttributes attributes;
    EXPECT_FALSE(systemFileManager().readAttributes(workingDirectory,
                                                    tree.path("work/" + relative).c_str(),
                                                    LinkPolicy::doNotFollow, attributes));
    ScanCandidate result;
    result.url = tree.path("work/" + relative);
    result.relativePath = relative;
    result.kind = attributes.isFolder() ? CandidateKind::directory : CandidateKind::file;
    result.modificationDate = attributes.modificationDate;
    result.fileIdentity = FileIdentity::token(attributes);
    return result;
  }

  // Whatever has failed, what is said of each item is true, and one of the reasons that are fixed
  // is given.
  void check(const CleanupResult& result) const {
    static const std::set<std::string_view> reasons{CleanupMessages::gone,
                                                    CleanupMessages::notMoved};
    EXPECT_EQ(result.moved.size() + result.failures.size(), candidates.size());
    for (const ScanCandidate& item : result.moved) EXPECT_FALSE(fs::exists(item.url));
    for (const CleanupFailure& failure : result.failures) {
      // What cannot be looked at afterwards and not be moved back is whole in the Trash.
      EXPECT_TRUE(fs::exists(tree.path("work/" + failure.path)) ||
                  extent() == Extent::allFromThere);
      EXPECT_TRUE(reasons.contains(failure.message)) << failure.message;
    }
    if (!hasFailed()) {
      EXPECT_TRUE(result.failures.empty());
    }
  }

  // As a file manager would, from what the Trash says of its items.
  void putBack(const CleanupResult& result) const {
    const std::string trash = tree.path("data/Trash");
    std::set<std::string> moved;
    for (const ScanCandidate& item : result.moved) moved.insert(item.url);
    if (fs::exists(trash + "/files")) {
      if (extent() == Extent::allFromThere) forgetWhatNeverCame(trash);
      for (const test::TrashedItem& item : test::trashedItems(trash)) {
        const bool isTold = moved.erase(item.info.path) > 0;
        EXPECT_TRUE(isTold || extent() == Extent::allFromThere) << item.info.path;
        test::restore(trash, item);
      }
    }
    EXPECT_TRUE(moved.empty()) << *moved.begin();
    for (const ScanCandidate& item : candidates) {
      EXPECT_EQ(FileIdentity::read(systemFileManager(), item.url), item.fileIdentity);
    }
    fs::remove_all(tree.path("data"));
  }

  // Information that could not be taken back does no harm.
  static void forgetWhatNeverCame(const std::string& trash) {
    for (const auto& item : fs::directory_iterator(trash + "/info")) {
      if (!fs::exists(trash + "/files/" + item.path().stem().native())) fs::remove(item);
    }
  }

  std::vector<ScanCandidate> candidates;
  std::map<std::string, GitSnapshot> snapshots;
};

TEST_F(CleanupFaults, LeaveEachItemInItsPlaceOrWholeInTheTrash) {
  const auto outside = snapshotOf(tree.path("outside"));
  const auto kept = snapshotOf(tree.path("work/kept"));
  const auto folder = snapshotOf(candidates[0].url);
  forEachFault([&] {
    arm();
    DefaultTrashManager manager(
        files, [this](const auto&...) { return snapshots; }, tree.path("data/Trash"));
    const CleanupResult result = manager.moveToTrash(candidates, tree.path("work"), {});
    disarm();
    check(result);
    putBack(result);
    EXPECT_EQ(snapshotOf(candidates[0].url), folder);
    EXPECT_EQ(snapshotOf(tree.path("work/kept")), kept);
    EXPECT_EQ(snapshotOf(tree.path("outside")), outside);
  });
}

class HistoryFaults : public EveryFault {
 protected:
  // What was in a file that could not be read, which is kept beside the new one.
  std::vector<CleanupHistoryEntry> setAside() const {
    for (const auto& item : fs::directory_iterator(tree.path("data/Broomtide"))) {
      if (!item.path().native().ends_with(".unreadable")) continue;
      return JSONHistoryStore(item.path(), systemFileManager()).load();
    }
    return {};
  }
};

TEST_F(HistoryFaults, LeaveTheHistoryAsItWasOrWithTheEntry) {
  const std::string file = tree.path("data/Broomtide/history.json");
  const auto entry = [](const char* root) {
    return CleanupHistoryEntry{
        .id = newUuid(), .date = Date(), .rootPath = root, .movedCount = 1, .failures = {}};
  };
  JSONHistoryStore plain(file, systemFileManager());
  for (const bool hasHistory : {false, true}) {
    forEachFault([&] {
      fs::remove_all(tree.path("data"));
      const CleanupHistoryEntry before = entry("/before"), after = entry("/after");
      if (hasHistory) plain.append(before);
      arm();
      bool isAdded = true;
      try {
        JSONHistoryStore(file, files).append(after);
      } catch (const std::system_error&) {
        isAdded = false;
      }
      disarm();
      std::vector<CleanupHistoryEntry> expected;
      if (isAdded) expected.push_back(after);
      if (hasHistory) expected.push_back(before);
      std::vector<CleanupHistoryEntry> found = plain.load();
      if (hasHistory && found.size() < expected.size())
        std::ranges::copy(setAside(), std::back_inserter(found));
      EXPECT_EQ(found, expected);
      EXPECT_GE(isAdded, !hasFailed()) << "refused without a fault";
    });
  }
}

}  // namespace
}  // namespace broomtide
