#include "soak/Git.h"

#include <spawn.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <stdexcept>

namespace broomtide::soak {
namespace {

// Ends when the child has, however it ended.
int statusOf(pid_t child) {
  int status = -1;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

}  // namespace

void runGit(const std::string& folder, const std::vector<std::string>& arguments) {
  std::vector<std::string> words{"git", "-C", folder, "--literal-pathspecs"};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  std::array<std::string, 4> settings{"PATH=/usr/bin:/bin", "HOME=/nonexistent",
                                      "GIT_CONFIG_NOSYSTEM=1", "LC_ALL=C"};
  std::array<char*, 5> environment{settings[0].data(), settings[1].data(), settings[2].data(),
                                   settings[3].data(), nullptr};
  pid_t child = -1;
  const bool isStarted =
      ::posix_spawnp(&child, "git", nullptr, nullptr, pointers.data(), environment.data()) == 0;
  if (!isStarted || statusOf(child) != 0) {
    throw std::runtime_error("git " + arguments.front() + " failed in " + folder);
  }
}

}  // namespace broomtide::soak
