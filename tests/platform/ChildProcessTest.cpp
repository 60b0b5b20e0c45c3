#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>

#include <thread>

#include "platform/FileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using test::TemporaryTree;

std::optional<std::string> shell(const std::string& script,
                                 const ChildProcess::Limits& limits = {.time = 1min},
                                 std::stop_token stop = {}) {
  auto output =
      ChildProcess::run({"/bin/sh", {"-c", script}, {"ONLY=this"}}, limits, std::move(stop));
  return output ? std::optional(output->text) : std::nullopt;
}

TEST(ChildProcess, ReturnsTheOutputOfSuccessOnly) {
  EXPECT_EQ(shell("printf 'a\\0b'; echo noise >&2"), std::string("a\0b", 3));
  EXPECT_EQ(shell("exit 0"), "");
  EXPECT_EQ(shell("echo partly; exit 3"), std::nullopt);
  EXPECT_EQ(shell("kill -9 $$"), std::nullopt);
  EXPECT_EQ(ChildProcess::run({"/nonexistent/program", {}, {}}, {.time = 1min}, {}), std::nullopt);
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
  EXPECT_EQ(shell(script, {.time = 500ms}), std::nullopt);
  waitUntilBothHaveEnded();
}

TEST_F(EndlessChild, IsKilledAtOnceOnRequest) {
  std::stop_source stopping;
  std::jthread stopper([&] {
    waitUntilStarted();
    stopping.request_stop();
  });
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(shell(script, {.time = 10min}, stopping.get_token()), std::nullopt);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
  waitUntilBothHaveEnded();
}

// A part of what it says must not be taken for all of it.
TEST(ChildProcess, GivesUpAChildThatSaysTooMuch) {
  const ChildProcess::Limits limits{.time = 1min, .output = 1000, .errors = 1000};
  EXPECT_EQ(shell("head -c 1000 /dev/zero; head -c 1000 /dev/zero >&2", limits)->size(), 1000U);
  EXPECT_EQ(shell("head -c 1001 /dev/zero", limits), std::nullopt);
  EXPECT_EQ(shell("head -c 1001 /dev/zero >&2", limits), std::nullopt);
  EXPECT_EQ(shell("cat /dev/zero", limits), std::nullopt);

  ChildProcess::Allowance allowance(1000);  // what fails, or is given back, leaves it as it was
  const ChildProcess::Limits shared{.time = 1min, .allowance = &allowance};
  EXPECT_EQ(shell("cat /dev/zero", shared), std::nullopt);
  EXPECT_EQ(shell("head -c 600 /dev/zero; exit 1", shared), std::nullopt);
  EXPECT_EQ(shell("head -c 600 /dev/zero", shared)->size(), 600U);
  EXPECT_EQ(shell("head -c 401 /dev/zero", shared), std::nullopt);
  EXPECT_EQ(shell("head -c 400 /dev/zero", shared)->size(), 400U);
}

TEST_F(EndlessChild, IsKilledWhenItOnlyWaits) {
  EXPECT_EQ(shell("exec 9<>'" + tree.path("alive") + "'; read line <&9",
                  {.time = 10min, .idleTime = 200ms}),
            std::nullopt);
  EXPECT_EQ(shell("i=0; while [ $i -lt 300000 ]; do i=$((i+1)); done; echo busy",
                  {.time = 1min, .idleTime = 400ms}),
            "busy\n");
}

}  // namespace
}  // namespace broomtide
