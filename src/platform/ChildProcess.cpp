#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>

#include "platform/FileDescriptor.h"

namespace broomtide::ChildProcess {
namespace {

using Clock = std::chrono::steady_clock;

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (const std::string& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

// A child in a process group of its own. Ends and reaps it when it is still there on destruction.
class Child {
 public:
  Child(const Command& command, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

    // The caller may have blocked or redirected signals for its own purposes.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(
        &attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    posix_spawnattr_setpgroup(&attributes, 0);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);

    std::vector<std::string> arguments{command.executable};
    arguments.insert(arguments.end(), command.arguments.begin(), command.arguments.end());
    if (::posix_spawn(&process_, command.executable.c_str(), &actions, &attributes,
                      pointers(arguments).data(), pointers(command.environment).data()) != 0) {
      process_ = -1;
    }
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    // The C library's own declaration of this call cannot be linked from C++ everywhere.
    if (process_ > 0) {
      ended_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process_, 0)));
    }
  }

  ~Child() {
    if (process_ <= 0) return;
    ::kill(-process_, SIGKILL);
    static_cast<void>(reap());
  }

  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  bool isRunning() const { return process_ > 0 && ended_.isOpen(); }

  // Readable once the child has ended.
  int ended() const { return ended_.get(); }

  // Waits for the child and returns its wait status.
  int reap() {
    int status = -1;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = -1;
    return status;
  }

 private:
  pid_t process_ = -1;
  FileDescriptor ended_;
};

// Waits until `awaited` can be read. False when the time is up or `interrupt` can be read first.
bool waitFor(int awaited, int interrupt, Clock::time_point deadline) {
  std::array<pollfd, 2> descriptors{pollfd{awaited, POLLIN, 0}, pollfd{interrupt, POLLIN, 0}};
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return false;
    const int ready = ::poll(descriptors.data(), descriptors.size(), static_cast<int>(left));
    if (ready < 0 && errno != EINTR) return false;
    if (ready <= 0) continue;
    return descriptors[1].revents == 0;
  }
}

}  // namespace

std::optional<std::string> run(const Command& command, std::chrono::milliseconds limit,
                               std::stop_token stop) {
  const FileDescriptor interrupt(::eventfd(0, EFD_CLOEXEC));
  std::array<int, 2> ends{};
  if (!interrupt.isOpen() || ::pipe2(ends.data(), O_CLOEXEC) != 0) return std::nullopt;
  const FileDescriptor readEnd(ends[0]);
  FileDescriptor writeEnd(ends[1]);
  const std::stop_callback interruptOnStop(stop, [&interrupt] {
    const std::uint64_t one = 1;
    static_cast<void>(!::write(interrupt.get(), &one, sizeof one));
  });

  const auto deadline = Clock::now() + limit;
  Child child(command, writeEnd.get());
  writeEnd.reset();
  if (!child.isRunning()) return std::nullopt;

  constexpr std::size_t chunk = 64 * 1024;
  std::string output;
  std::size_t length = 0;
  for (;;) {
    if (!waitFor(readEnd.get(), interrupt.get(), deadline)) return std::nullopt;
    if (output.size() - length < chunk) output.resize(output.size() * 2 + chunk);
    const ssize_t count = ::read(readEnd.get(), output.data() + length, output.size() - length);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
  }
  output.resize(length);
  output.shrink_to_fit();

  if (!waitFor(child.ended(), interrupt.get(), deadline)) return std::nullopt;
  const int status = child.reap();
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return std::nullopt;
  return output;
}

}  // namespace broomtide::ChildProcess
