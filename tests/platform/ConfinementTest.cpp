#include "platform/Confinement.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <functional>
#include <thread>

#include "platform/ChildProcess.h"
#include "platform/FileManager.h"
#include "support/OwnProcess.h"
#include "support/TemporaryTree.h"
#include "support/TreeSnapshot.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;

class Confined : public testing::Test {
 protected:
  using Attempts = std::vector<std::pair<const char*, std::function<bool()>>>;

  // Runs something in a thread that may run `program` and nothing else.
  static void confined(const std::string& program, const std::function<void()>& what) {
    std::jthread([&] {
      Confinement::confineThread(program);
      what();
    }).join();
  }

  void SetUp() override {
    if (!test::hasLandlock()) GTEST_SKIP() << "this kernel has no Landlock";
  }

  static bool canRun(const std::string& program, const std::vector<std::string>& arguments) {
    return ChildProcess::run({program, arguments, {"PATH=/usr/bin:/bin"}}, {.time = 1min}, {})
        .has_value();
  }

  static void expectRefused(const Attempts& attempts) {
    for (const auto& [what, attempt] : attempts) {
      EXPECT_FALSE(attempt()) << what;
      EXPECT_TRUE(errno == EPERM || errno == EACCES) << what << ": " << errno;
    }
  }

  test::TemporaryTree tree;
};

TEST_F(Confined, ChangesNoFiles) {
  const std::string file = tree.file("file", "text"), other = tree.path("other");
  tree.folder("folder");
  const std::string folder = tree.path("folder");
  const char* name = file.c_str();
  const Attempts attempts{
      {"empty", [&] { return FileDescriptor(::open(name, O_WRONLY | O_TRUNC)).isOpen(); }},
      {"create", [&] { return FileDescriptor(::open(other.c_str(), O_CREAT, 0600)).isOpen(); }},
      {"shorten", [&] { return ::truncate(name, 0) == 0; }},
      {"make", [&] { return FileDescriptor(::creat(other.c_str(), 0600)).isOpen(); }},
      {"remove", [&] { return ::unlink(name) == 0; }},
      {"remove a folder", [&] { return ::rmdir(folder.c_str()) == 0; }},
      {"rename", [&] { return ::rename(name, other.c_str()) == 0; }},
      {"link", [&] { return ::link(name, other.c_str()) == 0; }},
      {"point", [&] { return ::symlink(name, other.c_str()) == 0; }},
      {"create a folder", [&] { return ::mkdir(other.c_str(), 0700) == 0; }},
      {"create a pipe", [&] { return ::mkfifo(other.c_str(), 0600) == 0; }},
      {"allow", [&] { return ::chmod(name, 0777) == 0; }},
      {"give away", [&] { return ::chown(name, ::getuid(), ::getgid()) == 0; }},
  };
  const auto before = test::snapshotOf(tree.root());
  confined("/bin/true", [&] {
    expectRefused({{"write", [&] { return FileDescriptor(::open(name, O_WRONLY)).isOpen(); }}});
    expectRefused(attempts);
    for (const long call : {452, 463, 466, 469}) {  // which not every kernel knows
      EXPECT_EQ(::syscall(call, AT_FDCWD, name, 0777, 0, 0, 0), -1) << call;
      EXPECT_EQ(errno, EPERM) << call;
    }
    EXPECT_TRUE(FileDescriptor(::open(name, O_RDONLY)).isOpen());
    EXPECT_TRUE(FileDescriptor(::open("/dev/null", O_RDWR)).isOpen());
    EXPECT_EQ(::utimensat(AT_FDCWD, name, nullptr, 0), 0) << "a program should not notice";
  });
  EXPECT_EQ(test::snapshotOf(tree.root()), before);
  for (const auto& [what, attempt] : attempts) {
    tree.run("rm -rf * && echo text > file && mkdir folder");
    EXPECT_TRUE(attempt()) << what << " fails without confinement too";
  }
}

TEST_F(Confined, RunsOneProgram) {
  const std::string script = tree.file("script", "#!/bin/sh\n/bin/true\n");
  ASSERT_EQ(::chmod(script.c_str(), 0755), 0);
  confined("/usr/bin/env", [&] {
    EXPECT_TRUE(canRun("/usr/bin/env", {}));
    EXPECT_FALSE(canRun("/usr/bin/env", {"true"}));
    EXPECT_FALSE(canRun("/bin/sh", {"-c", ":"}));
    EXPECT_FALSE(canRun(script, {}));
  });
  confined(script, [&] {
    EXPECT_TRUE(canRun(script, {}));
    EXPECT_FALSE(canRun("/bin/sh", {"-c", "echo > '" + tree.path("written") + "'"}));
  });
  EXPECT_TRUE(canRun("/usr/bin/env", {"true"}));
}

TEST_F(Confined, ReachesNoNetwork) {
  confined("/bin/true", [&] {
    for (const int family : {AF_INET, AF_INET6, AF_UNIX, AF_NETLINK}) {
      EXPECT_FALSE(FileDescriptor(::socket(family, SOCK_STREAM, 0)).isOpen()) << family;
    }
  });
  EXPECT_TRUE(FileDescriptor(::socket(AF_UNIX, SOCK_STREAM, 0)).isOpen());
}

}  // namespace
}  // namespace broomtide
