#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>

#include <thread>

#include "platform/FileDescriptor.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using test::TemporaryTree;

std::optional<std::string> shell(const std::string& script, std::chrono::milliseconds limit = 1min,
                                 std::stop_token stop = {}) {
  auto output =
      ChildProcess::run({"/bin/sh", {"-c", script}, {"ONLY=this"}}, limit, std::move(stop));
  return output ? std::optional(output->text) : std::nullopt;
}

TEST(ChildProcess, ReturnsTheOutputOfSuccessOnly) {
  EXPECT_EQ(shell("printf 'a\\0b'; echo noise >&2"), std::string("a\0b", 3));
  EXPECT_EQ(shell("exit 0"), "");
  EXPECT_EQ(shell("echo partly; exit 3"), std::nullopt);
  EXPECT_EQ(shell("kill -9 $$"), std::nullopt);
  EXPECT_EQ(ChildProcess::run({"/nonexistent/program", {}, {}}, 1min, {}), std::nullopt);
  EXPECT_EQ(shell("head -c 3000000 /dev/zero")->size(), 3'000'000U);
}

TEST(ChildProcess, GivesNoInputAndOnlyTheNamedEnvironment) {
  EXPECT_EQ(shell("cat; /usr/bin/env | grep -v -e ^PWD= -e ^_= -e ^SHLVL=; true"), "ONLY=this\n");
}

// Neither the script nor the child it starts ever ends; as long as one lives, it holds a pipe open.
class EndlessChild : public testing::Test {
 protected:
  EndlessChild() {
    tree.pipe("alive");
    pipe = FileDescriptor(::open(tree.path("alive").c_str(), O_RDONLY | O_NONBLOCK));
  }

  void waitUntilStarted() const { waitFor(POLLIN); }
  void waitUntilBothHaveEnded() const { waitFor(POLLHUP); }

  const TemporaryTree tree;
  const std::string script =
      "exec 9>'" + tree.path("alive") + "'; sleep 1000 & echo started >&9; wait";

 private:
  void waitFor(short event) const {
    constexpr int giveUpAfter = 30'000;
    pollfd state{pipe.get(), event, 0};
    EXPECT_EQ(::poll(&state, 1, giveUpAfter), 1);
    EXPECT_NE(state.revents & event, 0);
  }

  FileDescriptor pipe;
};

TEST_F(EndlessChild, IsKilledWithItsOwnChildrenWhenTheTimeIsUp) {
  EXPECT_EQ(shell(script, 500ms), std::nullopt);
  waitUntilBothHaveEnded();
}

TEST_F(EndlessChild, IsKilledAtOnceOnRequest) {
  std::stop_source stopping;
  std::jthread stopper([&] {
    waitUntilStarted();
    stopping.request_stop();
  });
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(shell(script, 10min, stopping.get_token()), std::nullopt);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
  waitUntilBothHaveEnded();
}

TEST(ChildProcess, KeepsTheFirstErrors) {
  const auto output = ChildProcess::run(
      {"/bin/sh", {"-c", "echo first >&2; head -c 1000000 /dev/zero >&2; echo done"}, {}}, 1min,
      {});
  ASSERT_TRUE(output);
  EXPECT_EQ(output->text, "done\n");
  EXPECT_TRUE(output->errors.starts_with("first\n"));
  EXPECT_LT(output->errors.size(), 100'000U);
}

TEST(ChildProcess, EndsAChildThatClosesItsOutputAndGoesOn) {
  EXPECT_EQ(shell("exec >&-; sleep 1000", 300ms), std::nullopt);
}

}  // namespace
}  // namespace broomtide
