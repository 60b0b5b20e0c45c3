#include <chrono>

#include "context/GitInspector.h"
#include "core/ServiceInterfaces.h"
#include "scanner/DefaultFileScanner.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

// Scans and stops within the update with this number. How many updates there were when the scan
// ended well; nothing when it ended as cancelled.
std::optional<std::size_t> updatesWhenStoppedAt(std::size_t number, const std::string& root) {
  DefaultFileScanner scanner(systemFileManager(), {.measuringThreads = 2,
                                                   .git = GitCommand::executable(),
                                                   .gitRunLimit = GitCommand::runLimit});
  std::stop_source stopping;
  std::size_t count = 0;
  try {
    scanner.scan(
        root, ScanMode::project, std::chrono::system_clock::now(),
        [&](std::span<const ScanUpdate> told, const auto&...) {
          EXPECT_FALSE(stopping.stop_requested()) << "a call after the request to stop";
          if (count <= number && number < count + told.size()) stopping.request_stop();
          count += told.size();
        },
        stopping.get_token());
  } catch (const CancellationError&) {
    return std::nullopt;
  }
  return count;
}

TEST(Cancellation, EndsTheScanWithinWhicheverUpdateItComes) {
  test::TemporaryTree tree;
  tree.file(".gitignore", "node_modules\n");
  tree.run(
      "touch package.json; mkdir src; for i in $(seq 300); do echo x > src/$i; "
      "mkdir -p node_modules/$((i % 20)); echo x > node_modules/$((i % 20))/$i; done");
  tree.repository("");
  const std::size_t last = updatesWhenStoppedAt(1'000'000, tree.root()).value() - 1;
  for (std::size_t number = 0; number < last; ++number) {
    EXPECT_EQ(updatesWhenStoppedAt(number, tree.root()), std::nullopt) << number;
  }
  EXPECT_EQ(updatesWhenStoppedAt(last, tree.root()), last + 1) << "the scan is complete by then";
}

}  // namespace
}  // namespace broomtide
