#include "platform/SpawnedChild.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>
#include <utility>
#include <vector>

namespace broomtide::ChildProcess {
namespace {

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

// The process, or -1 when it cannot be started.
pid_t spawn(const Command& command, int output, int errors) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);

  // The caller may have blocked or redirected signals for its own purposes.
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes,
                           POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  posix_spawnattr_setpgroup(&attributes, 0);
  sigset_t signals;
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  sigfillset(&signals);
  posix_spawnattr_setsigdefault(&attributes, &signals);

  std::vector<std::string> arguments{command.executable};
  arguments.insert(arguments.end(), command.arguments.begin(), command.arguments.end());
  pid_t process = -1;
  const int error = ::posix_spawn(&process, command.executable.c_str(), &actions, &attributes,
                                  pointers(arguments).data(), pointers(command.environment).data());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? process : -1;
}

}  // namespace

Stream::Stream(std::size_t most) : most_(most) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
  readEnd_ = FileDescriptor(ends[0]);
  writeEnd_ = FileDescriptor(ends[1]);
}

bool Stream::read() {
  constexpr std::size_t chunk = 64 * 1024;
  if (text_.size() - length_ < chunk) text_.resize(text_.size() * 2 + chunk);
  const ssize_t count = ::read(readEnd_.get(), text_.data() + length_, text_.size() - length_);
  if (count < 0) return errno == EINTR;
  if (count == 0) readEnd_.reset();
  length_ += static_cast<std::size_t>(count);
  return length_ <= most_;
}

std::string Stream::take() {
  text_.resize(length_);
  text_.shrink_to_fit();
  return std::move(text_);
}

SpawnedChild::SpawnedChild(const Command& command, int output, int errors)
    : process_(spawn(command, output, errors)) {
  if (process_ <= 0) return;
  const rlimit memory{memoryLimit, memoryLimit};
  ::prlimit(process_, RLIMIT_AS, &memory, nullptr);
  // The C library's own declaration of this call cannot be linked from C++ everywhere.
  ended_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process_, 0)));
}

SpawnedChild::~SpawnedChild() {
  if (process_ <= 0) return;
  ::kill(-process_, SIGKILL);
  static_cast<void>(reap());
}

std::string SpawnedChild::processorTime() const {
  std::ifstream statistics("/proc/" + std::to_string(process_) + "/schedstat");
  std::string time;
  statistics >> time;
  return time;
}

int SpawnedChild::reap() {
  int status = -1;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
  process_ = -1;
  return status;
}

}  // namespace broomtide::ChildProcess
