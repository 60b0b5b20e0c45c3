#include "support/OwnProcess.h"

#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <exception>
#include <system_error>

namespace broomtide::test {

void withUmask(mode_t mask, const std::function<void()>& action) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    ::umask(mask);
    try {
      action();
    } catch (const std::exception& failure) {
      ADD_FAILURE() << failure.what();
    }
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
}

bool hasLandlock() {
  return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) > 0;
}

mode_t permissionsOf(const std::string& path) {
  struct stat status;
  if (::lstat(path.c_str(), &status) != 0)
    throw std::system_error(errno, std::generic_category(), path);
  return status.st_mode & ~static_cast<mode_t>(S_IFMT);
}

}  // namespace broomtide::test
