#include <filesystem>
#include <set>

#include "cleanup/JSONHistoryStore.h"
#include "cleanup/Revalidation.h"
#include "core/Uuid.h"
#include "reliability/Cleanable.h"
#include "reliability/EveryFault.h"

namespace broomtide {
namespace {

namespace fs = std::filesystem;
using test::EveryFault;

class CleanupFaults : public EveryFault {
 protected:
  // Whatever has failed, what is said of each item is true, and one of the reasons that are fixed
  // is given.
  void check(const CleanupResult& result) const {
    static const std::set<std::string_view> reasons{messages::gone, messages::notMoved};
    EXPECT_EQ(result.moved.size() + result.failures.size(), cleanable.candidates().size());
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

  void putBack(const CleanupResult& result) const {
    // Information that could not be taken back does no harm.
    if (extent() == Extent::oneCall) {
      EXPECT_FALSE(cleanable.hasStrayInformation());
    }
    const std::set<std::string> found = cleanable.putBack();
    for (const ScanCandidate& item : result.moved) EXPECT_TRUE(found.contains(item.url));
    EXPECT_TRUE(found.size() == result.moved.size() || extent() == Extent::allFromThere);
    cleanable.expectAsBefore();
    fs::remove_all(tree.path("data"));
  }

  const test::Cleanable cleanable = test::Cleanable(tree);
};

TEST_F(CleanupFaults, LeaveEachItemInItsPlaceOrWholeInTheTrash) {
  forEachFault([&] {
    arm();
    const CleanupResult result = cleanable.clean(files);
    disarm();
    check(result);
    putBack(result);
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
