#include "support/Leaks.h"

#include <sys/wait.h>

#include <cerrno>
#include <filesystem>
#include <iterator>

namespace broomtide::test {

std::size_t openDescriptors() {
  const auto count = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  return static_cast<std::size_t>(count) - 1;  // without the one that counting takes
}

bool hasChildren() {
  siginfo_t child{};
  return ::waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
}

}  // namespace broomtide::test
