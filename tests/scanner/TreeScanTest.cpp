#include "scanner/TreeScan.h"

#include <future>
#include <set>

#include "scanner/DefaultFileScanner.h"
#include "support/FaultyFileManager.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using test::FaultyFileManager;
using test::issuesOf;
using test::pathsOf;
using test::ScanRecorder;
using test::TemporaryTree;

TEST(TreeScan, ReportsEveryStepInOrder) {
  TemporaryTree tree;
  tree.file("package.json");
  tree.file(".next/a", "x");
  tree.file(".next/b/c", "x");
  tree.file("debug.log", "x");
  ScanRecorder recorder;
  const ScanResult result = recorder.scan(tree.root());
  EXPECT_EQ(recorder.updates, (std::vector<std::string>{
                                  "3 0 Detected 1 project context(s)… (0)",
                                  "4 0 Calculating .next… (0)",
                                  "7 8192 Calculating .next… (0)",
                                  "7 8192 .next (1)",
                                  "8 8192 debug.log (1)",
                                  "8 12288 debug.log (2)",
                                  "9 0 Scan complete (2)",
                              }));
  EXPECT_EQ(pathsOf(result), (std::vector<std::string>{".next", "debug.log"}));
}

TEST(TreeScan, LabelsEverySixtyFourthEntryThatNoRuleAccepts) {
  TemporaryTree tree;
  for (int number = 100; number < 300; ++number) tree.file("f" + std::to_string(number));
  ScanRecorder recorder;
  recorder.scan(tree.root(), ScanMode::downloads);
  EXPECT_EQ(recorder.updates, (std::vector<std::string>{
                                  "0 0 Scanning Downloads… (0)", "64 0 f163 (0)", "128 0 f227 (0)",
                                  "192 0 f291 (0)", "200 0 Scan complete (0)"}));
}

// What has been moved already would lose its way back, and a repository its branches.
TEST(TreeScan, OffersNothingThatIsInATrash) {
  TemporaryTree tree;
  for (const char* folder : {"share/Trash", "Trash", ".Trash", ".Trash-1000", "disk/.Trash-0",
                             ".Trash-", ".Trash-x", "share/Trashes", "clone/.git"}) {
    tree.file(std::string(folder) + "/files/app/package.json");
    tree.file(std::string(folder) + "/files/app/.next/page", "x");
    tree.file(std::string(folder) + "/files/table.csv", "x");
  }
  tree.link("share", "linked");
  const auto names = [](const std::vector<std::string>& paths) {
    std::set<std::string> tops;
    for (const std::string& path : paths) tops.insert(path.substr(0, path.find("/files/")));
    return tops;
  };
  const std::set<std::string> expected{"Trash", ".Trash-", ".Trash-x", "share/Trashes"};
  for (const ScanMode mode : {ScanMode::project, ScanMode::downloads}) {
    EXPECT_EQ(names(pathsOf(ScanRecorder().scan(tree.root(), mode))), expected);
  }
}

// Whatever happens to a matched item between being listed and being examined.
TEST(TreeScan, ToldOfAnItemThatVanishesChangesOrCannotBeExamined) {
  struct Case {
    std::string item;
    std::errc openError;
    std::errc attributesError;
    std::vector<std::string> candidates;
    std::vector<std::string> issues;
  };
  using enum std::errc;
  constexpr std::errc none{};
  const std::vector<std::string> hasVanished{"The item disappeared while it was being scanned."};
  const std::vector<Case> cases{
      {".next", no_such_file_or_directory, no_such_file_or_directory, {}, hasVanished},
      {".next", too_many_symbolic_link_levels, none, {}, {}},
      {".next", not_a_directory, none, {}, {}},
      {".next", permission_denied, none, {".next"}, {}},
      {".next", permission_denied, permission_denied, {}, {"Permission denied"}},
      {"a.log", none, no_such_file_or_directory, {}, hasVanished},
      {"a.log", none, io_error, {}, {"Input/output error"}},
  };
  for (const Case& item : cases) {
    TemporaryTree tree;
    tree.file("package.json");
    item.item == ".next" ? tree.folder(item.item) : tree.file(item.item);
    FaultyFileManager files;
    files.onOpen = [&](const std::string& name) {
      return std::make_error_code(name == item.item ? item.openError : std::errc());
    };
    files.onAttributes = [&](const std::string& name) {
      return std::make_error_code(name == item.item ? item.attributesError : std::errc());
    };
    const ScanResult result = ScanRecorder(files).scan(tree.root());
    EXPECT_EQ(pathsOf(result), item.candidates) << std::make_error_code(item.openError).message();
    std::vector<std::string> issues;
    for (const std::string& message : item.issues) issues.push_back(item.item + ": " + message);
    EXPECT_EQ(issuesOf(result, tree.root()), issues);
  }
}

TEST(TreeScan, MeasuresNothingThatNoProjectAccepts) {
  TemporaryTree tree;
  for (const char* path :
       {"a/dist/x", "a/package.json", "b/dist/x", "g/package.json", "g/target/x"})
    tree.file(path);
  FaultyFileManager files;
  files.onOpen = [](const std::string& name) {
    EXPECT_FALSE(name.ends_with("b/dist") || name.ends_with("g/target")) << "measured for nothing";
    return std::error_code();
  };
  EXPECT_EQ(pathsOf(ScanRecorder(files).scan(tree.root())), std::vector<std::string>{"a/dist"});
}

// Neighbours of one kind in one project, which differ in nothing but what Git says.
TEST(TreeScan, JudgesEachNeighbourForItself) {
  TemporaryTree tree;
  tree.file("package.json");
  for (const char* folder : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
    tree.file(std::string(folder) + "/.next/f", "x");
  }
  tree.file("c/.gitignore", ".next\n");
  for (const char* folder : {"b", "c", "d", "e", "f"}) tree.repository(folder);
  tree.run(
      "rm -r b/.git/refs; rm d/.git/index; : > d/.git/refs/heads/$(ls d/.git/refs/heads);"
      "git init -q h; cd e && git rm -rq --cached . && cd .. &&"
      "mkdir data && mv f/.git data/f && ln -s ../data/f f/.git && mkfifo g/.git");
  std::vector<std::string> reasons;
  for (const ScanCandidate& candidate : ScanRecorder().scan(tree.root()).candidates) {
    reasons.push_back(candidate.relativePath + ": " + candidate.evidence.lines()[1].text());
  }
  EXPECT_THAT(reasons, testing::UnorderedElementsAre(
                           "a/.next: No Git repository was detected for this project.",
                           "c/.next: The path is ignored by Git.",
                           "e/.next: The path is untracked, but not explicitly ignored by Git.",
                           "h/.next: The path is untracked, but not explicitly ignored by Git.",
                           "b/.next: Git status could not be verified.",
                           "d/.next: Git status could not be verified.",  // has lost its index
                           "f/.next: Git status could not be verified.",  // a link to a repository
                           "g/.next: Git status could not be verified."));
}

// A repository need not have a manifest, nor be the nearest one that has the item in its index.
TEST(TreeScan, OffersNothingThatAnyRepositoryAroundItTracks) {
  TemporaryTree tree;
  for (const char* manifest : {"package.json", "late/package.json"}) tree.file(manifest);
  for (const char* folder : {"nearer/a", "late/b", "late/c"}) {
    tree.file(std::string(folder) + "/.next/f", "x");
  }
  tree.repository("nearer");
  tree.file("nearer/d/.next/f", "x");
  tree.file("broken/.git/HEAD");
  tree.file("broken/.next/f", "x");
  for (std::string deep = "deep"; deep.size() < 22; deep += "/r") tree.repository(deep);
  tree.file("deep/r/r/r/r/r/r/r/r/.next/f", "x");  // with so many around that nobody asks them all
  tree.file(".gitignore", "nearer/\nbroken/\nlate/c/\ndeep/\n");
  tree.repository("");
  tree.file("late/.gitignore", ".next\n");
  tree.repository("late");
  std::vector<std::string> found;
  for (const ScanCandidate& candidate : ScanRecorder().scan(tree.root()).candidates) {
    found.push_back(candidate.relativePath + ": " + candidate.evidence.lines()[1].text());
  }
  EXPECT_THAT(found,
              testing::UnorderedElementsAre(
                  "nearer/d/.next: The path is untracked, but not explicitly ignored by Git.",
                  "broken/.next: Git status could not be verified.",
                  "deep/r/r/r/r/r/r/r/r/.next: Git status could not be verified.",
                  "late/c/.next: The path is ignored by Git."));
}

// What lies above is not scanned, but its repository is asked what it tracks.
TEST(TreeScan, OffersNothingThatTheRepositoryAroundTheFolderTracks) {
  TemporaryTree tree;
  for (const char* name : {"app/package.json", "app/dist/f", "app/.next/f", "app/own/.next/f"}) {
    tree.file(name, "x");
  }
  tree.repository("");  // has everything so far in its index
  tree.file("app/coverage/f", "x");
  tree.file(".gitignore", "coverage\n");
  tree.repository("app/own");
  tree.file("app/own/.mypy_cache/f", "x");
  tree.link("app", "way");
  for (const char* folder : {"app", "way"}) {
    const std::vector<ScanCandidate> found = ScanRecorder().scan(tree.path(folder)).candidates;
    ASSERT_EQ(found.size(), 1U) << folder;
    EXPECT_EQ(found[0].relativePath, "coverage");
    EXPECT_EQ(found[0].gitStatus, GitItemStatus::unavailable);
    EXPECT_EQ(found[0].gitRoot, std::nullopt);
    EXPECT_EQ(found[0].otherGitRoots, std::vector{rootsAround(tree.path(folder))});
  }
  tree.file(".git/index", "broken");
  for (const auto& [folder, count] : {std::pair("app", 3U), std::pair("app/own", 1U)}) {
    const std::vector<ScanCandidate> found = ScanRecorder().scan(tree.path(folder)).candidates;
    EXPECT_EQ(found.size(), count) << folder;
    for (const ScanCandidate& candidate : found) {
      EXPECT_EQ(candidate.evidence.lines()[1].text(), "Git status could not be verified.");
      EXPECT_FALSE(candidate.isSelected);
    }
  }
}

TEST(TreeScan, MeasuresNothingThatItCannotIdentify) {
  TemporaryTree tree;
  tree.file("package.json");
  tree.file(".next/f", "x");
  FaultyFileManager files;
  files.onAttributes = [](const std::string& name) {
    EXPECT_NE(name, "f");
    return std::make_error_code(name.empty() ? std::errc::io_error : std::errc());
  };
  const ScanResult result = ScanRecorder(files).scan(tree.root());
  EXPECT_TRUE(result.candidates.empty());
  EXPECT_EQ(issuesOf(result, tree.root()), std::vector<std::string>{".next: Input/output error"});
}

// A repository may be hidden in what could not be read.
TEST(TreeScan, EndsWhenItRunsOutOfOpenFilesOrMemory) {
  TemporaryTree tree;
  tree.folder("a");
  FaultyFileManager files;
  for (const std::errc failure :
       {std::errc::too_many_files_open, std::errc::too_many_files_open_in_system,
        std::errc::not_enough_memory}) {
    files.onOpen = [failure](const std::string& name) {
      return std::make_error_code(name == "a" ? failure : std::errc());
    };
    EXPECT_THROW(ScanRecorder(files).scan(tree.root()), std::system_error);
  }
}

TEST(TreeScan, RefusesTheWholeFileSystem) {
  TemporaryTree tree;
  tree.link("/", "everything");
  for (const std::string& root : {std::string("/"), std::string("/.."), tree.path("everything")}) {
    for (const ScanMode mode : {ScanMode::project, ScanMode::downloads, ScanMode::caches}) {
      try {
        ScanRecorder().scan(root, mode);
        ADD_FAILURE() << root;
      } catch (const ScannerError& error) {
        EXPECT_EQ(error.failure(), ScannerError::Case::wholeFileSystem);
      }
    }
  }
}

}  // namespace
}  // namespace broomtide
