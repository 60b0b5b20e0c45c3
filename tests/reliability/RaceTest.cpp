// Somebody swaps what is scanned and cleaned at the worst moments.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "cleanup/DefaultTrashManager.h"
#include "scanner/DefaultFileScanner.h"
#include "support/FaultyFileManager.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"
#include "support/TrashReader.h"
#include "support/TreeSnapshot.h"

namespace broomtide {
namespace {

namespace fs = std::filesystem;

// What is done to an item, or to the folder that holds it. Each is done and undone in turn.
enum class Swap {
  itemByLink,      // to the item of the same name outside
  itemByItem,      // in one step
  itemByOther,     // a folder by a file, a file by a folder, in one step
  parentByLink,    // to the folder of the same name outside
  parentByParent,  // in one step
};
constexpr std::array allSwaps{Swap::itemByLink, Swap::itemByItem, Swap::itemByOther,
                              Swap::parentByLink, Swap::parentByParent};

struct Row {
  ScanMode mode;
  std::string parent;  // below the folder that is scanned
  std::string name;
  bool isFolder;

  std::string path() const { return parent + '/' + name; }
};

bool rename(const std::string& from, const std::string& to, unsigned int flags) {
  return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) == 0;
}

// Takes the item at a path to `hidden` and puts a link to `target` in its place; or, where the link
// is there already, takes it to `away` and brings the item back.
bool putOrTakeLink(const std::string& path, const std::string& away, const std::string& target,
                   const std::string& hidden) {
  std::error_code error;
  if (fs::is_symlink(path, error)) {
    return rename(path, away, RENAME_NOREPLACE) && rename(hidden, path, RENAME_NOREPLACE);
  }
  if (!rename(path, hidden, RENAME_NOREPLACE)) return false;
  fs::create_symlink(target, path, error);
  return !error;
}

// A folder to scan that holds one item, and one outside it that looks the same and holds far more.
// Every file says something of its own, so that none can be lost unnoticed.
class SwappedTree {
 public:
  explicit SwappedTree(Row item);

  void build();
  bool swap(Swap swap);
  void swapRoot();
  void expectNothingLost() const;

  std::string scanned() const { return tree_.path("scanned"); }
  std::string trash() const { return tree_.path("Trash"); }

  // Far more than there is in all the files that may be measured.
  static constexpr std::int64_t bytesOutside = std::int64_t{20} << 20U;

 private:
  void fill(const std::string& folder);
  std::string newText();
  std::string newAway();

  const Row item_;
  test::TemporaryTree tree_;
  std::vector<std::string> outside_;
  std::multiset<std::string> texts_;
  int count_ = 0;
};

SwappedTree::SwappedTree(Row item) : item_(std::move(item)) {
  fill("outside");
  const std::string path = tree_.path("outside/" + item_.path());
  const std::string big = item_.isFolder ? path + "/big" : path;
  const int file = ::open(big.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  EXPECT_EQ(::posix_fallocate(file, 0, bytesOutside), 0);
  ::close(file);
  outside_ = test::snapshotOf(tree_.path("outside"));
}

void SwappedTree::build() {
  for (const char* name : {"scanned", "others", "away", "Trash"}) fs::remove_all(tree_.path(name));
  texts_.clear();
  for (const char* name : {"scanned", "others"}) fill(name);
  tree_.file(item_.isFolder ? "others/other" : "others/other/file", newText());
  tree_.folder("away");
}

void SwappedTree::fill(const std::string& folder) {
  const std::string path = folder + '/' + item_.path();
  tree_.file(folder + '/' + item_.parent + "/package.json", newText());
  if (item_.isFolder) tree_.file(path + "/deep/file", newText());
  tree_.file(item_.isFolder ? path + "/file" : path, newText());
}

std::string SwappedTree::newText() { return *texts_.insert("text " + std::to_string(++count_)); }

std::string SwappedTree::newAway() { return tree_.path("away/" + std::to_string(++count_)); }

// What is not possible just now is left out, and false is returned. Nothing is erased or replaced.
bool SwappedTree::swap(Swap swap) {
  const std::string parent = scanned() + '/' + item_.parent, path = scanned() + '/' + item_.path();
  const std::string otherParent = tree_.path("others/" + item_.parent);
  const bool isParentSwapped = swap == Swap::parentByLink || swap == Swap::parentByParent;
  // What a link leads to is not for anybody to touch.
  if (!isParentSwapped && (fs::is_symlink(parent) || fs::is_symlink(otherParent))) return false;
  switch (swap) {
    case Swap::itemByLink:
      return putOrTakeLink(path, newAway(), tree_.path("outside/" + item_.path()),
                           tree_.path("away/item"));
    case Swap::itemByItem:
      return rename(path, otherParent + '/' + item_.name, RENAME_EXCHANGE);
    case Swap::itemByOther:
      return rename(path, tree_.path("others/other"), RENAME_EXCHANGE);
    case Swap::parentByLink:
      return putOrTakeLink(parent, newAway(), tree_.path("outside/" + item_.parent),
                           tree_.path("away/parent"));
    case Swap::parentByParent:
      return rename(parent, otherParent, RENAME_EXCHANGE);
  }
  return false;
}

void SwappedTree::swapRoot() {
  rename(scanned(), newAway(), RENAME_NOREPLACE);
  fs::create_symlink(tree_.path("outside"), scanned());
}

void SwappedTree::expectNothingLost() const {
  std::multiset<std::string> found;
  for (const char* name : {"scanned", "others", "away", "Trash/files"}) {
    const std::string folder = tree_.path(name);
    if (!fs::exists(folder) || fs::is_symlink(folder)) continue;
    for (const auto& item : fs::recursive_directory_iterator(folder)) {
      if (item.is_symlink() || !item.is_regular_file()) continue;
      std::ifstream file(item.path());
      found.emplace(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
  }
  EXPECT_EQ(found, texts_);
  EXPECT_EQ(test::snapshotOf(tree_.path("outside")), outside_);
}

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

  ~Race() override { EXPECT_GT(moved, 0U); }

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
    static const std::set<std::string_view> reasons{messages::noLongerInside, messages::becameLink,
                                                    messages::gone,           messages::replaced,
                                                    messages::modified,       messages::notMoved};
    for (const CleanupFailure& failure : result.failures) {
      EXPECT_TRUE(reasons.contains(failure.message.pattern)) << failure.message.text();
    }
    moved += result.moved.size();
    expectOnlyInTrash(result.moved);
    tree.expectNothingLost();
  }

  void expectOnlyInTrash(const std::vector<ScanCandidate>& items) const {
    std::map<std::string, std::string> expected, found;
    for (const ScanCandidate& item : items) expected[item.url] = item.fileIdentity;
    if (fs::exists(tree.trash() + "/files")) {
      for (const auto& [place, item] : test::trashedItems(tree.trash())) {
        found[place] = test::identityOf(item);
      }
    }
    EXPECT_EQ(found, expected);
  }

  SwappedTree tree = SwappedTree(GetParam());
  test::FaultyFileManager files;
  std::function<void()> onCall = [] {};
  const Date now = std::chrono::system_clock::now() + std::chrono::hours(24 * 400);
  std::size_t moved = 0;
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

INSTANTIATE_TEST_SUITE_P(, Race,
                         testing::Values(Row{ScanMode::project, "group/app", "node_modules", true},
                                         Row{ScanMode::caches, ".npm", "_cacache", true},
                                         Row{ScanMode::downloads, "Exports", "old.zip", false}),
                         [](const auto& row) { return std::string(rawValue(row.param.mode)); });

}  // namespace
}  // namespace broomtide
