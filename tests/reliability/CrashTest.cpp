#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "cleanup/JSONHistoryStore.h"
#include "core/Uuid.h"
#include "reliability/Cleanable.h"
#include "support/FaultyFileManager.h"

namespace broomtide {
namespace {

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
  test::Cleanable cleanable = test::Cleanable(tree);
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
    cleanable.expectAsBefore();
    const std::size_t found = entries();
    EXPECT_TRUE(found == recorded || (found == recorded + 1 && items == 2)) << found;
    recorded = found;
  }
  EXPECT_EQ(cleanable.putBack().size(), 2U);
  EXPECT_EQ(entries(), recorded + 1);
  std::cout << "[  CRASHES ] " << call - 1 << '\n';
}

}  // namespace
}  // namespace broomtide
