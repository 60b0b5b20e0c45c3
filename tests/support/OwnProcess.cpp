#include "support/OwnProcess.h"

#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/landlock.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <system_error>
#include <vector>

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

void refuseToChangePermissions() {
  std::vector<sock_filter> steps{
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
  };
  const std::vector<std::uint32_t> refused{
#ifdef SYS_chmod
      SYS_chmod,
#endif
      SYS_fchmod, SYS_fchmodat};
  for (const std::uint32_t call : refused) {
    steps.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, call, 0, 1));
    steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM));
  }
  steps.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
  const sock_fprog program{.len = static_cast<unsigned short>(steps.size()),
                           .filter = steps.data()};
  ASSERT_EQ(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
  ASSERT_EQ(::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0);
}

mode_t permissionsOf(const std::string& path) {
  struct stat status;
  if (::lstat(path.c_str(), &status) != 0)
    throw std::system_error(errno, std::generic_category(), path);
  return status.st_mode & ~static_cast<mode_t>(S_IFMT);
}

}  // namespace broomtide::test
