#include "reliability/Cleanable.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "cleanup/DefaultTrashManager.h"
#include "platform/PathSafety.h"
#include "support/ScanRecorder.h"
#include "support/TrashReader.h"
#include "support/TreeSnapshot.h"

namespace broomtide::test {

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> strayInformation(const std::string& trash) {
  std::vector<fs::path> stray;
  if (!fs::exists(trash + "/info")) return stray;
  for (const auto& item : fs::directory_iterator(trash + "/info")) {
    if (!fs::exists(trash + "/files/" + item.path().stem().native())) stray.push_back(item);
  }
  return stray;
}

}  // namespace

Cleanable::Cleanable(const TemporaryTree& tree) : tree_(tree) {
  tree.file("work/app/node_modules/m/index.js", "module");
  tree.link("../../kept", "work/app/node_modules/link");
  tree.file("work/app/package.json", "{}");
  tree.file("work/old.log", "log");
  tree.file("work/kept/file", "kept");
  tree.file("outside/precious", "precious");
  for (const char* path : {"app/node_modules", "old.log"}) {
    candidates_.push_back(candidateBelow(tree.path("work"), path));
  }
  candidates_[0].gitRoot = tree.path("work/app");
  candidates_[0].gitStatus = GitItemStatus::ignored;
  GitSnapshot& snapshot = snapshots_[tree.path("work/app")];
  snapshot.root = tree.path("work/app");
  snapshot.ignoredPaths = PathSet(std::string("node_modules\0", 13));
  snapshot.isAvailable = true;
  folder_ = snapshotOf(candidates_[0].url);
  kept_ = snapshotOf(tree.path("work/kept"));
  outside_ = snapshotOf(tree.path("outside"));
}

CleanupResult Cleanable::clean(FileManager& fileManager) const {
  DefaultTrashManager manager(
      fileManager, [this](const auto&...) { return snapshots_; }, tree_.path("data/Trash"));
  return manager.moveToTrash(candidates_, tree_.path("work"), {});
}

std::set<std::string> Cleanable::putBack() const {
  const std::string trash = tree_.path("data/Trash");
  std::set<std::string> found;
  for (const fs::path& information : strayInformation(trash)) fs::remove(information);
  if (fs::exists(trash + "/files")) {
    for (const TrashedItem& item : trashedItems(trash)) {
      found.insert(item.info.path);
      restore(trash, item);
    }
  }
  fs::remove_all(trash);
  return found;
}

bool Cleanable::hasStrayInformation() const {
  return !strayInformation(tree_.path("data/Trash")).empty();
}

void Cleanable::expectAsBefore() const {
  for (const ScanCandidate& item : candidates_) {
    EXPECT_EQ(identityOf(item.url), item.fileIdentity);
  }
  EXPECT_EQ(snapshotOf(candidates_[0].url), folder_);
  EXPECT_EQ(snapshotOf(tree_.path("work/kept")), kept_);
  EXPECT_EQ(snapshotOf(tree_.path("outside")), outside_);
}

}  // namespace broomtide::test
