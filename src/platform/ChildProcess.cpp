#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <utility>

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
  Child(const Command& command, int output, int errors) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);

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
    if (process_ <= 0) return;
    const rlimit memory{memoryLimit, memoryLimit};
    ::prlimit(process_, RLIMIT_AS, &memory, nullptr);
    // The C library's own declaration of this call cannot be linked from C++ everywhere.
    ended_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process_, 0)));
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

// One end of a pipe that a child writes to.
class Stream {
 public:
  // Keeps at most `most` bytes and reads on.
  explicit Stream(std::size_t most) : most_(most) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    readEnd_ = FileDescriptor(ends[0]);
    writeEnd_ = FileDescriptor(ends[1]);
  }

  bool isOpen() const { return readEnd_.isOpen(); }
  int readEnd() const { return readEnd_.get(); }
  int writeEnd() const { return writeEnd_.get(); }
  void closeWriteEnd() { writeEnd_.reset(); }

  // Reads what is there; the stream is closed at its end. False when that fails.
  bool read() {
    constexpr std::size_t chunk = 64 * 1024;
    if (text_.size() - length_ < chunk) text_.resize(text_.size() * 2 + chunk);
    const ssize_t count = ::read(readEnd_.get(), text_.data() + length_, text_.size() - length_);
    if (count < 0) return errno == EINTR;
    if (count == 0) readEnd_.reset();
    length_ = std::min(length_ + static_cast<std::size_t>(count), most_);
    return true;
  }

  std::string take() {
    text_.resize(length_);
    text_.shrink_to_fit();
    return std::move(text_);
  }

 private:
  const std::size_t most_;
  FileDescriptor readEnd_;
  FileDescriptor writeEnd_;
  std::string text_;
  std::size_t length_ = 0;
};

// Waits until one of the descriptors can be read. Closed ones (-1) are left out. False when the
// time is up or `interrupt` can be read first.
bool waitFor(std::array<pollfd, 2>& awaited, int interrupt, Clock::time_point deadline) {
  std::array<pollfd, 3> descriptors{awaited[0], awaited[1], pollfd{interrupt, POLLIN, 0}};
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return false;
    const int ready = ::poll(descriptors.data(), descriptors.size(), static_cast<int>(left));
    if (ready < 0 && errno != EINTR) return false;
    if (ready <= 0) continue;
    awaited = {descriptors[0], descriptors[1]};
    return descriptors[2].revents == 0;
  }
}

}  // namespace

std::optional<Output> run(const Command& command, std::chrono::milliseconds limit,
                          std::stop_token stop) {
  constexpr std::size_t mostOutput = memoryLimit;
  constexpr std::size_t mostErrors = 16 * 1024;
  const FileDescriptor interrupt(::eventfd(0, EFD_CLOEXEC));
  Stream output(mostOutput);
  Stream errors(mostErrors);
  if (!interrupt.isOpen() || !output.isOpen() || !errors.isOpen()) return std::nullopt;
  const std::stop_callback interruptOnStop(stop, [&interrupt] {
    const std::uint64_t one = 1;
    static_cast<void>(!::write(interrupt.get(), &one, sizeof one));
  });

  const auto deadline = Clock::now() + limit;
  Child child(command, output.writeEnd(), errors.writeEnd());
  output.closeWriteEnd();
  errors.closeWriteEnd();
  if (!child.isRunning()) return std::nullopt;

  while (output.isOpen() || errors.isOpen()) {
    std::array<pollfd, 2> streams{pollfd{output.readEnd(), POLLIN, 0},
                                  pollfd{errors.readEnd(), POLLIN, 0}};
    if (!waitFor(streams, interrupt.get(), deadline)) return std::nullopt;
    if (streams[0].revents != 0 && !output.read()) return std::nullopt;
    if (streams[1].revents != 0 && !errors.read()) return std::nullopt;
  }
  std::array<pollfd, 2> end{pollfd{child.ended(), POLLIN, 0}, pollfd{-1, 0, 0}};
  if (!waitFor(end, interrupt.get(), deadline)) return std::nullopt;
  const int status = child.reap();
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return std::nullopt;
  return Output{.text = output.take(), .errors = errors.take()};
}

}  // namespace broomtide::ChildProcess
