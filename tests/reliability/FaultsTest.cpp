// Every call that an operation makes of the file system fails once, and a process is killed before
// each of them. Whatever happens, an item is whole in its place or whole in the Trash.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <csignal>
#include <filesystem>
#include <map>
#include <set>

#include "cleanup/DefaultTrashManager.h"
#include "cleanup/JSONHistoryStore.h"
#include "context/GitInspector.h"
#include "core/ServiceInterfaces.h"
#include "core/Uuid.h"
#include "scanner/DefaultFileScanner.h"
#include "support/FaultyFileManager.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"
#include "support/TrashReader.h"
#include "support/TreeSnapshot.h"

namespace broomtide {
namespace {

namespace fs = std::filesystem;
using test::snapshotOf;

std::size_t openDescriptors() {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
}

bool hasChildren() {
  siginfo_t child{};
  return ::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
}

// Makes each call fail with each of a few errors, whether or not it could: once alone, and once
// together with every call after it.
class EveryFault : public testing::Test {
 protected:
  enum class Extent { oneCall, allFromThere };

  EveryFault() {
    files.onOpen = files.onAttributes = files.onChange =
        files.onCheck = [this](const std::string&) { return nextCall(); };
    files.onRead = [this] { return nextCall(); };
  }
  ~EveryFault() override { EXPECT_GT(injected_, 0); }

  // Runs an attempt without a fault, and then for each fault until one comes that it does not
  // reach. What the attempt does between arm() and disarm() is what fails.
  void forEachFault(const std::vector<std::errc>& errors, const std::function<void()>& attempt) {
    attempt();
    for (const Extent each : {Extent::oneCall, Extent::allFromThere}) {
      for (const std::errc error : errors) {
        extent = each;
        error_ = std::make_error_code(error);
        forEachCall(attempt);
        if (HasFailure()) return;
      }
    }
  }
  void arm() { calls_ = 0; }
  void disarm() {
    if (hasFailed()) ++injected_;
    lastCalls_ = calls_.exchange(unarmed);
  }
  bool hasFailed() const {
    return failingCall_ > 0 && (calls_ < 0 ? lastCalls_ : calls_.load()) >= failingCall_;
  }

  test::TemporaryTree tree;
  test::FaultyFileManager files;
  Extent extent = Extent::oneCall;

 private:
  static constexpr int unarmed = -1'000'000'000;

  void forEachCall(const std::function<void()>& attempt) {
    failingCall_ = 0;
    do {
      ++failingCall_;
      SCOPED_TRACE(error_.message() + " at call " + std::to_string(failingCall_) +
                   (extent == Extent::oneCall ? "" : " and all after it"));
      const std::size_t descriptors = openDescriptors();
      attempt();
      EXPECT_EQ(openDescriptors(), descriptors);
      EXPECT_FALSE(hasChildren());
    } while (hasFailed() && !HasFailure());
    failingCall_ = 0;
  }

  std::error_code nextCall() {
    const int call = ++calls_;
    const bool isReached = extent == Extent::oneCall ? call == failingCall_ : call >= failingCall_;
    return failingCall_ > 0 && isReached ? error_ : std::error_code();
  }

  std::atomic<int> calls_ = unarmed;
  int lastCalls_ = 0;
  int failingCall_ = 0;
  std::error_code error_;
  int injected_ = 0;
};

class ScanFaults : public EveryFault {
 protected:
  ScanFaults() {
    files.maxBytesPerRead = 64;  // so that a folder can fail after its first entries
    // File systems list folders in orders of their own, so that some of these come before others.
    for (const char* name : {"package.json", "Cargo.toml", "mix.exs"}) {
      tree.file(std::string("work/web/") + name);
    }
    tree.file("work/web/.gitignore", "node_modules\n");
    tree.file("work/web/dist/tracked.js", "tracked");
    tree.file("work/web/dist/tracked.css", "tracked");
    tree.repository("work/web");
    tree.file("work/web/node_modules/m/index.js", "module");
    tree.file("work/web/node_modules/n/deep/index.js", "module");
    for (const char* name : {"target", ".next"}) {
      tree.file(std::string("work/web/") + name + "/made", "made");
    }
    tree.file("work/plain/Cargo.toml");
    tree.file("work/plain/target/debug/object", "object");
    tree.file("work/plain/web/package.json");
    tree.file("work/plain/web/.next/page", "page");
    tree.link("../web", "work/plain/link");
    tree.file("home/Library/Caches/pip/http/a", "cached");
    tree.file("home/Library/Developer/Xcode/DerivedData/A/b", "built");
    tree.file("home/.npm/_cacache/index", "cached");
    tree.file("downloads/old.dmg", "image");
    tree.file("downloads/Exports/old.zip", "archive");
  }

  void scanWithEachFault(ScanMode mode, const std::string& folder) {
    const std::string root = tree.path(folder);
    const auto before = snapshotOf(tree.root());
    std::map<std::string, ScanCandidate> expected;
    const std::vector<std::errc> errors{std::errc::permission_denied,
                                        std::errc::too_many_files_open,
                                        std::errc::no_such_file_or_directory};
    forEachFault(errors, [&] {
      arm();
      try {
        DefaultFileScanner scanner(files, {.measuringThreads = 2,
                                           .git = GitCommand::executable(),
                                           .gitRunLimit = GitCommand::runLimit});
        const ScanResult result = scanner.scan(root, mode, now, [](const auto&...) {}, {});
        disarm();
        if (expected.empty()) {
          for (const ScanCandidate& item : result.candidates) expected[item.id()] = item;
          EXPECT_FALSE(expected.empty());
          EXPECT_TRUE(result.issues.empty());
        }
        for (const ScanCandidate& item : result.candidates) compare(item, expected[item.id()]);
      } catch (const ScannerError&) {
        disarm();
      } catch (const std::system_error& error) {
        disarm();
        EXPECT_EQ(error.code(), std::errc::too_many_files_open);
      }
      EXPECT_EQ(snapshotOf(tree.root()), before);
    });
  }

  // A fault may hide things and shrink sizes, and it may make the judgement more cautious.
  static void compare(const ScanCandidate& found, const ScanCandidate& expected) {
    EXPECT_EQ(found.url, expected.url) << "only found with the fault";
    EXPECT_EQ(found.kind, expected.kind);
    EXPECT_EQ(found.fileIdentity, expected.fileIdentity);
    EXPECT_EQ(found.category, expected.category);
    EXPECT_LE(found.size, expected.size);
    EXPECT_GE(found.safety, expected.safety);
    EXPECT_GE(found.confidence, expected.confidence);
    EXPECT_LE(found.isSelected, expected.isSelected);
    EXPECT_GE(found.gitRoot.has_value(), expected.gitRoot.has_value());
  }

  const Date now = std::chrono::system_clock::now() + std::chrono::hours(24 * 400);
};

TEST_F(ScanFaults, InProjects) { scanWithEachFault(ScanMode::project, "work"); }
TEST_F(ScanFaults, InCaches) { scanWithEachFault(ScanMode::caches, "home"); }
TEST_F(ScanFaults, InDownloads) { scanWithEachFault(ScanMode::downloads, "downloads"); }

// Two items to clean, a folder that a repository ignores and a file, beside what must stay.
class Cleanable {
 public:
  explicit Cleanable(const test::TemporaryTree& tree) : tree_(tree) {
    tree.file("work/app/node_modules/m/index.js", "module");
    tree.link("../../kept", "work/app/node_modules/link");
    tree.file("work/app/package.json", "{}");
    tree.file("work/old.log", "log");
    tree.file("work/kept/file", "kept");
    tree.file("outside/precious", "precious");
    for (const char* path : {"app/node_modules", "old.log"}) {
      candidates.push_back(test::candidateBelow(tree.path("work"), path));
    }
    candidates[0].gitRoot = tree.path("work/app");
    candidates[0].gitStatus = GitItemStatus::ignored;
    GitSnapshot& snapshot = snapshots_[tree.path("work/app")];
    snapshot.root = tree.path("work/app");
    snapshot.ignoredPaths = PathSet(std::string("node_modules\0", 13));
    snapshot.isAvailable = true;
    for (const char* folder : {"work/app/node_modules", "work/kept", "outside"}) {
      before_[folder] = snapshotOf(tree.path(folder));
    }
  }

  CleanupResult clean(FileManager& fileManager) const {
    DefaultTrashManager manager(
        fileManager, [this](const auto&...) { return snapshots_; }, trash_);
    return manager.moveToTrash(candidates, tree_.path("work"), {});
  }

  // Whether there is information in the Trash of an item that is not; it is removed.
  bool removeStrayInformation() const {
    bool isAny = false;
    if (!fs::exists(trash_ + "/info")) return isAny;
    for (const auto& item : fs::directory_iterator(trash_ + "/info")) {
      EXPECT_FALSE(item.path().extension() == ".trashinfo" && fs::is_empty(item));
      if (fs::exists(trash_ + "/files/" + item.path().stem().native())) continue;
      isAny = fs::remove(item.path());
    }
    return isAny;
  }

  // Puts back what is in the Trash from what the Trash says of it, and takes the Trash away.
  // Returns the paths; fails the test for an item without information, and when anything is other
  // than at the beginning afterwards.
  std::set<std::string> putBack() const {
    std::set<std::string> found;
    removeStrayInformation();
    if (fs::exists(trash_ + "/files")) {
      for (const auto& [place, item] : test::trashedItems(trash_)) {
        EXPECT_FALSE(fs::exists(fs::symlink_status(place))) << place;
        fs::rename(item, place);
        found.insert(place);
      }
    }
    fs::remove_all(trash_);
    for (const ScanCandidate& item : candidates) {
      EXPECT_EQ(test::identityOf(item.url), item.fileIdentity);
    }
    for (const auto& [folder, lines] : before_) {
      EXPECT_EQ(snapshotOf(tree_.path(folder)), lines);
    }
    return found;
  }

  std::vector<ScanCandidate> candidates;

 private:
  const test::TemporaryTree& tree_;
  const std::string trash_ = tree_.path("data/Trash");
  std::map<std::string, GitSnapshot> snapshots_;
  std::map<std::string, std::vector<std::string>> before_;
};

const std::vector<std::errc> changeErrors{
    std::errc::permission_denied,  std::errc::io_error,
    std::errc::no_space_on_device, std::errc::too_many_files_open,
    std::errc::filename_too_long,  std::errc::no_such_file_or_directory,
    std::errc::cross_device_link,  std::errc::read_only_file_system,
    std::errc::interrupted};

class CleanupFaults : public EveryFault {
 protected:
  // Whatever has failed, what is said of each item is true, and one of the reasons that are fixed
  // is given.
  void check(const CleanupResult& result) const {
    static const std::set<std::string_view> reasons{messages::gone, messages::gitUnknown,
                                                    messages::notMoved};
    EXPECT_EQ(result.moved.size() + result.failures.size(), cleanable.candidates.size());
    for (const ScanCandidate& item : result.moved) EXPECT_FALSE(fs::exists(item.url));
    for (const CleanupFailure& failure : result.failures) {
      // What cannot be looked at afterwards and not be moved back is whole in the Trash.
      EXPECT_TRUE(fs::exists(tree.path("work/" + failure.path)) || extent == Extent::allFromThere);
      EXPECT_TRUE(reasons.contains(failure.message.pattern)) << failure.message.text();
    }
    if (!hasFailed()) {
      EXPECT_TRUE(result.failures.empty());
    }
  }

  void putBack(const CleanupResult& result) const {
    // Information that could not be taken back does no harm.
    EXPECT_FALSE(cleanable.removeStrayInformation() && extent == Extent::oneCall);
    const std::set<std::string> found = cleanable.putBack();
    for (const ScanCandidate& item : result.moved) EXPECT_TRUE(found.contains(item.url));
    EXPECT_TRUE(found.size() == result.moved.size() || extent == Extent::allFromThere);
    fs::remove_all(tree.path("data"));
  }

  const Cleanable cleanable = Cleanable(tree);
};

TEST_F(CleanupFaults, LeaveEachItemInItsPlaceOrWholeInTheTrash) {
  forEachFault(changeErrors, [&] {
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
    forEachFault(changeErrors, [&] {
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

// A process that cleans and records it is killed before each call that it makes.
class Crash : public testing::Test {
 protected:
  // Whether it was killed.
  bool cleanUntilCall(int last) const {
    const pid_t process = ::fork();
    if (process == 0) {
      test::FaultyFileManager files;
      int calls = 0;
      files.onOpen = files.onAttributes = files.onChange = files.onCheck = [&](const auto&) {
        if (++calls == last) ::raise(SIGKILL);
        return std::error_code();
      };
      const bool isClean = cleanable.clean(files).failures.empty();
      JSONHistoryStore(history, files).append(entry());
      ::_exit(isClean ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(::waitpid(process, &status, 0), process);
    const bool isKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    EXPECT_TRUE(isKilled || (WIFEXITED(status) && WEXITSTATUS(status) == 0)) << status;
    return isKilled;
  }

  static CleanupHistoryEntry entry() {
    return {.id = newUuid(), .date = Date(), .rootPath = "/x", .movedCount = 2, .failures = {}};
  }

  std::size_t entries() const {
    return JSONHistoryStore(history, systemFileManager()).load().size();
  }

  test::TemporaryTree tree;
  Cleanable cleanable = Cleanable(tree);
  const std::string history = tree.path("data/Broomtide/history.json");
};

TEST_F(Crash, AtAnyCallLeavesItemsWholeAndTheHistoryReadable) {
  std::size_t recorded = 0, moved = 0;
  int call = 1;
  while (cleanUntilCall(call) && !HasFailure()) {
    SCOPED_TRACE("killed before call " + std::to_string(call++));
    const std::size_t items = cleanable.putBack().size();
    EXPECT_GE(items, moved);
    moved = items;
    const std::size_t found = entries();
    EXPECT_TRUE(found == recorded || (found == recorded + 1 && items == 2)) << found;
    recorded = found;
  }
  EXPECT_EQ(cleanable.putBack().size(), 2U);
  EXPECT_EQ(entries(), recorded + 1);
  EXPECT_GT(call, 20);
}

}  // namespace
}  // namespace broomtide
