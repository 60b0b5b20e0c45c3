#include <sys/stat.h>

#include <chrono>

#include "context/GitInspector.h"
#include "core/ServiceInterfaces.h"
#include "scanner/DefaultFileScanner.h"
#include "support/FaultyFileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using test::FaultyFileManager;
using test::TemporaryTree;

class Cancellation : public testing::Test {
 protected:
  Cancellation() {
    tree.file("package.json");
    tree.file(".gitignore", "node_modules\n");
    for (int number = 0; number < 300; ++number) tree.file("src/f" + std::to_string(number), "x");
    for (int number = 0; number < 300; ++number) {
      tree.file("node_modules/m" + std::to_string(number % 20) + "/f" + std::to_string(number),
                "x");
    }
    tree.repository("");
  }

  // Scans and stops within the update with this number; true when the scan ended as cancelled.
  bool isCancelledAt(std::size_t number, ScanMode mode, std::optional<std::string> git) {
    DefaultFileScanner scanner(
        files, {.measuringThreads = 2, .git = std::move(git), .gitRunLimit = 10min});
    std::stop_source stopping;
    std::size_t count = 0;
    try {
      scanner.scan(
          tree.root(), mode, std::chrono::system_clock::now(),
          [&](std::span<const ScanUpdate> told, const auto&...) {
            EXPECT_FALSE(stopping.stop_requested()) << "a call after the request to stop";
            if (count <= number && number < count + told.size()) stopping.request_stop();
            count += told.size();
          },
          stopping.get_token());
    } catch (const CancellationError&) {
      return true;
    }
    updates = count;
    return false;
  }

  TemporaryTree tree;
  FaultyFileManager files;
  std::size_t updates = 0;
};

TEST_F(Cancellation, EndsTheScanWithinWhicheverUpdateItComes) {
  const auto git = GitCommand::executable();
  ASSERT_FALSE(isCancelledAt(1'000'000, ScanMode::project, git));
  const std::size_t last = updates - 1;  // in that one the scan is complete
  for (std::size_t number = 0; number < last; ++number) {
    EXPECT_TRUE(isCancelledAt(number, ScanMode::project, git)) << number;
  }
  EXPECT_FALSE(isCancelledAt(last, ScanMode::project, git));
}

TEST_F(Cancellation, AnswersWhileGitNeverEnds) {
  const std::string stub = tree.file("stub/git", "#!/bin/sh\nexec sleep 1000\n");
  ASSERT_EQ(::chmod(stub.c_str(), 0755), 0);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(isCancelledAt(0, ScanMode::project, stub));
  EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
}

}  // namespace
}  // namespace broomtide
