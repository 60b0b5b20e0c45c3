#include "scanner/Measurement.h"

#include <filesystem>

#include "scanner/MeasurementPool.h"
#include "support/FaultyFileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using test::FaultyFileManager;
using test::TemporaryTree;

class Measuring : public testing::Test {
 protected:
  Measurement::Result measure(std::size_t threads = 2) {
    const std::filesystem::path root = tree.root();
    FileDescriptor top;
    EXPECT_FALSE(files.openFolder(workingDirectory, root.parent_path().c_str(),
                                  LinkPolicy::doNotFollow, top));
    MeasurementPool pool(files, std::move(top), threads, {});
    calls.clear();
    const auto measurement = pool.measure(root.filename(), policy);
    pool.finish();
    EXPECT_TRUE(measurement->awaitFolder({}).isOpen);
    return measurement->await(tree.root(), {}, [this](std::int64_t bytes, std::int64_t entries) {
      calls.emplace_back(bytes, entries);
    });
  }

  std::vector<std::int64_t> entriesOfCalls() const {
    std::vector<std::int64_t> entries;
    for (const auto& call : calls) entries.push_back(call.second);
    return entries;
  }

  static constexpr ContentsPolicy policy{.countsFiles = true};
  TemporaryTree tree;
  FaultyFileManager files;
  std::vector<std::pair<std::int64_t, std::int64_t>> calls;
};

TEST_F(Measuring, ReportsEveryIntervalAndTheEnd) {
  const std::vector<std::pair<int, std::vector<std::int64_t>>> cases{
      {0, {0}}, {127, {127}}, {128, {128, 128}}, {300, {128, 256, 300}}};
  int made = 0;
  for (const auto& [count, expected] : cases) {
    for (; made < count; ++made) tree.file("f" + std::to_string(made), "x");
    EXPECT_EQ(measure(1).entries, count);
    EXPECT_EQ(entriesOfCalls(), expected);
  }
  EXPECT_TRUE(std::ranges::is_sorted(calls));
  EXPECT_EQ(calls.back().first, 300 * 4096);
  tree.run("rm *; for link in $(seq 200); do ln -s / $link; done");
  EXPECT_EQ(measure(1).entries, 200);
  EXPECT_EQ(entriesOfCalls(), std::vector<std::int64_t>{200}) << "intervals end with a link";
}

TEST_F(Measuring, SharesOneFolderAmongThreadsWithoutLosingAnything) {
  tree.run(
      "for d in $(seq 60); do for i in a b c; do for j in x y; do "
      "mkdir -p $d/$i/$j && echo 1 > $d/$i/$j/a.sql; done; done; done");
  const Measurement::Result alone = measure(1);
  for (int round = 0; round < 20; ++round) {
    const Measurement::Result shared = measure(4);
    EXPECT_EQ(shared.entries, alone.entries);
    EXPECT_EQ(shared.bytes, alone.bytes);
    EXPECT_EQ(shared.contents.fingerprint(), alone.contents.fingerprint());
    EXPECT_EQ(shared.contents.first(Sign::protectedFile), "1/a/x/a.sql");
    EXPECT_EQ(calls.size(), static_cast<std::size_t>(alone.entries / 128 + 1));
    EXPECT_TRUE(std::ranges::is_sorted(calls));
  }
}

TEST_F(Measuring, CountsBlocksOfRegularFilesOnly) {
  tree.run("truncate -s 1G sparse; printf x > one; ln one two; mkdir d; ln -s / d/link; mkfifo p");
  const Measurement::Result result = measure();
  EXPECT_EQ(result.entries, 6);
  EXPECT_EQ(result.bytes, 2 * 4096);
  EXPECT_TRUE(result.issues.empty());
}

TEST_F(Measuring, ListsProblemsInTheOrderOfTheTreeAndGoesOn) {
  for (const char* path : {"b/x/1", "b-c/2", "a/bad", "a/3"}) tree.file(path, "x");
  files.onAttributes = [](const std::string& name) {
    return std::make_error_code(name == "bad" ? std::errc::no_such_file_or_directory : std::errc());
  };
  files.onOpen = [](const std::string& name) {
    return std::make_error_code(name == "x" || name == "b-c" ? std::errc::permission_denied
                                                             : std::errc());
  };
  for (int round = 0; round < 20; ++round) {
    const Measurement::Result result = measure();
    std::vector<std::string> issues;
    for (const ScanIssue& issue : result.issues) {
      issues.push_back(issue.path.substr(tree.root().size() + 1) + ": " + issue.message);
    }
    EXPECT_EQ(issues,
              (std::vector<std::string>{"a/bad: No such file or directory",
                                        "b/x: Permission denied", "b-c: Permission denied"}));
    EXPECT_EQ(result.entries, 6);
    EXPECT_EQ(result.bytes, 4096);
  }
}

}  // namespace
}  // namespace broomtide
