#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <thread>

#include "cleanup/DefaultTrashManager.h"
#include "cleanup/Revalidation.h"
#include "core/Paths.h"
#include "platform/PathSafety.h"
#include "reliability/SwappedTree.h"
#include "scanner/DefaultFileScanner.h"
#include "support/FaultyFileManager.h"
#include "support/TrashReader.h"

namespace broomtide {
namespace {

using test::Swap;
using test::SwappedTree;

struct Row {
  const char* name;
  ScanMode mode;
  test::SwappedItem item;

  friend std::ostream& operator<<(std::ostream& stream, const Row& row) {
    return stream << row.name;
  }
};

constexpr std::array allSwaps{Swap::itemByLink,  Swap::itemByItem,   Swap::itemByNewItem,
                              Swap::itemByOther, Swap::parentByLink, Swap::parentByParent};

// Scans and cleans while somebody swaps what is there.
class Race : public testing::TestWithParam<Row> {
 protected:
  Race() {
    files.onOpen = files.onAttributes = files.onChange = files.onCheck = [this](const auto&) {
      onCall();
      return std::error_code();
    };
    files.onRead = [this] {
      onCall();
      return std::error_code();
    };
  }

  ~Race() override {
    EXPECT_GT(moved, 0U);
    std::cout << "[   RACES  ] " << rounds << " rounds, " << moved << " items moved\n";
  }

  std::vector<ScanCandidate> scan() {
    DefaultFileScanner scanner(files, {.measuringThreads = 2, .git = {}, .gitRunLimit = {}});
    const ScanResult scanned = scanner.scan(
        tree.scanned(), GetParam().mode, now,
        [this](auto, std::span<const ScanCandidate> told, auto) { expectInside(told); }, {});
    expectInside(scanned.candidates);
    return scanned.candidates;
  }

  void expectInside(std::span<const ScanCandidate> candidates) const {
    for (const ScanCandidate& item : candidates) {
      EXPECT_LT(item.size, SwappedTree::bytesOutside / 2) << item.relativePath;
    }
  }

  CleanupResult clean(const std::vector<ScanCandidate>& candidates) {
    DefaultTrashManager manager(
        files, [](const auto&...) { return std::map<std::string, GitSnapshot>(); }, tree.trash());
    CleanupResult result = manager.moveToTrash(candidates, tree.scanned(), {});
    EXPECT_EQ(result.moved.size() + result.failures.size(), candidates.size());
    return result;
  }

  // To be called when nothing is swapped any more.
  void check(const CleanupResult& result) {
    ++rounds;
    static const std::set<std::string_view> reasons{messages::noLongerInside, messages::becameLink,
                                                    messages::gone,           messages::replaced,
                                                    messages::modified,       messages::notMoved};
    for (const CleanupFailure& failure : result.failures) {
      EXPECT_TRUE(reasons.contains(failure.message)) << failure.message;
    }
    moved += result.moved.size();
    expectOnlyInTrash(result.moved);
    tree.expectNothingLost();
  }

  void expectOnlyInTrash(const std::vector<ScanCandidate>& items) const {
    std::map<std::string, std::string> expected, found;
    for (const ScanCandidate& item : items) expected[item.url] = item.fileIdentity;
    const std::string folder = tree.trash() + "/files";
    if (std::filesystem::exists(folder)) {
      for (const test::TrashedItem& item : test::trashedItems(tree.trash())) {
        found[item.info.path] = test::identityOf(paths::appending(folder, item.name));
      }
    }
    EXPECT_EQ(found, expected);
  }

  SwappedTree tree = SwappedTree(GetParam().item);
  test::FaultyFileManager files;
  std::function<void()> onCall = [] {};
  const Date now = std::chrono::system_clock::now() + std::chrono::hours(24 * 400);
  std::size_t rounds = 0, moved = 0;
};

TEST_P(Race, ASwapBeforeAnyCallMovesNothingElse) {
  for (const Swap swap : allSwaps) {
    std::atomic<int> calls = 0;
    int swaps = 0;
    for (int swapped = 1; calls >= swapped - 1 && !HasFailure(); ++swapped) {
      SCOPED_TRACE("swap " + std::to_string(static_cast<int>(swap)) + " before call " +
                   std::to_string(swapped));
      tree.build();
      calls = 0;
      onCall = [&] {
        if (++calls == swapped) swaps += tree.swap(swap) ? 1 : 0;
      };
      check(clean(scan()));
    }
    EXPECT_GT(swaps, 10) << "this file system lets nobody swap " << static_cast<int>(swap);
  }
}

TEST_P(Race, AScannedFolderThatIsReplacedBeforeAnyCallIsNotLeft) {
  int calls = 0;
  for (int swapped = 1; calls >= swapped - 1 && !HasFailure(); ++swapped) {
    SCOPED_TRACE("before call " + std::to_string(swapped));
    tree.build();
    onCall = [] {};
    const std::vector<ScanCandidate> candidates = scan();
    EXPECT_EQ(candidates.size(), 1U);
    calls = 0;
    onCall = [&] {
      if (++calls == swapped) tree.swapRoot();
    };
    check(clean(candidates));
  }
}

// RACE_ROUNDS in the environment asks for other than 100 rounds of each mode.
TEST_P(Race, AThreadThatKeepsSwappingGetsNothingElseMoved) {
  const char* wanted = std::getenv("RACE_ROUNDS");
  const unsigned long wantedRounds = wanted == nullptr ? 100 : std::stoul(wanted);
  std::atomic<unsigned long> calls = 0;
  onCall = [&calls] { ++calls; };
  while (rounds < wantedRounds && !HasFailure()) {
    SCOPED_TRACE("round " + std::to_string(rounds));
    tree.build();
    calls = 0;
    CleanupResult result;
    {
      const std::jthread swapper([&](const std::stop_token& stop) {
        constexpr unsigned long mostCallsBetween = 20;
        std::minstd_rand random(static_cast<unsigned int>(rounds));
        for (unsigned long next = 0; !stop.stop_requested();) {
          next += random() % mostCallsBetween;
          while (calls < next && !stop.stop_requested()) std::this_thread::yield();
          tree.swap(allSwaps[random() % allSwaps.size()]);
        }
      });
      result = clean(scan());
    }
    check(result);
  }
}

INSTANTIATE_TEST_SUITE_P(
    , Race,
    testing::Values(
        Row{"Projects",
            ScanMode::project,
            {.parent = "group/app", .name = "node_modules", .isFolder = true}},
        Row{"Caches", ScanMode::caches, {.parent = ".npm", .name = "_cacache", .isFolder = true}},
        Row{"Downloads",
            ScanMode::downloads,
            {.parent = "Exports", .name = "old.zip", .isFolder = false}}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace broomtide
