#include "platform/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "platform/FileManager.h"

namespace broomtide::ChildProcess {
namespace {

// A pipe that a child writes to, and what came out of it.
class Stream {
 public:
  // Takes how many bytes may come, and what they are taken from, if anything. The stream is not
  // open when there are no descriptors left.
  Stream(std::size_t most, Allowance* allowance);

  // Gives back what was not given away.
  ~Stream();

  Stream(const Stream&) = delete;
  Stream& operator=(const Stream&) = delete;

  // True until the end of what is written was read.
  bool isOpen() const { return readEnd_.isOpen(); }

  // The descriptors of both ends, -1 for one that is closed.
  int readEnd() const { return readEnd_.get(); }
  int writeEnd() const { return writeEnd_.get(); }

  // To be called once the child has its own, so that the stream ends with the child.
  void closeWriteEnd() { writeEnd_.reset(); }

  // Reads what is there; the stream is closed at its end. False when that fails or it is too much.
  bool read();

  // Gives away all that was read.
  std::string take();

 private:
  const std::size_t most_;
  Allowance* const allowance_;
  FileDescriptor readEnd_;
  FileDescriptor writeEnd_;
  std::string text_;
  std::size_t length_ = 0;
  std::size_t taken_ = 0;  // from the allowance
};

// A child in a process group of its own. Kills the group and waits for the child when it was not
// yet waited for on destruction.
class SpawnedChild {
 public:
  // Starts a command without input, which writes to the descriptors `output` and `errors`. When
  // that fails, the child is not running.
  SpawnedChild(const Command& command, int output, int errors);
  ~SpawnedChild();

  SpawnedChild(const SpawnedChild&) = delete;
  SpawnedChild& operator=(const SpawnedChild&) = delete;

  // True from the start until the child was waited for.
  bool isRunning() const { return process_ > 0 && ended_.isOpen(); }

  // A descriptor that can be read once the child has ended.
  int ended() const { return ended_.get(); }

  // The nanoseconds that the child has spent on a processor, which change as long as it does
  // anything. Empty where the system does not tell.
  std::string processorTime() const;

  // Waits for the child and returns its wait status.
  int reap();

 private:
  pid_t process_ = -1;
  FileDescriptor ended_;
};

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

Stream::Stream(std::size_t most, Allowance* allowance) : most_(most), allowance_(allowance) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
  readEnd_ = FileDescriptor(ends[0]);
  writeEnd_ = FileDescriptor(ends[1]);
}

Stream::~Stream() {
  if (allowance_ != nullptr) allowance_->giveBack(taken_);
}

bool Stream::read() {
  constexpr std::size_t chunk = 64 * 1024;
  if (text_.size() - length_ < chunk) text_.resize(text_.size() * 2 + chunk);
  const ssize_t count = ::read(readEnd_.get(), text_.data() + length_, text_.size() - length_);
  if (count < 0) return errno == EINTR;
  if (count == 0) readEnd_.reset();
  const auto arrived = static_cast<std::size_t>(count);
  length_ += arrived;
  if (length_ > most_ || (allowance_ != nullptr && !allowance_->take(arrived))) return false;
  taken_ += arrived;
  return true;
}

std::string Stream::take() {
  text_.resize(length_);
  text_.shrink_to_fit();
  taken_ = 0;
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

using Clock = std::chrono::steady_clock;

// Waits for what a child writes and for its end, within the limits of time.
class Wait {
 public:
  Wait(const SpawnedChild& child, int interrupt, const Limits& limits)
      : child_(child),
        interrupt_(interrupt),
        limits_(limits),
        deadline_(Clock::now() + limits.time) {}

  // Waits until one of the descriptors can be read. Closed ones (-1) are left out. False when a
  // limit is reached or the interruption comes first.
  bool forEither(std::array<pollfd, 2>& awaited) {
    std::array<pollfd, 3> descriptors{awaited[0], awaited[1], pollfd{interrupt_, POLLIN, 0}};
    lastSign_ = Clock::now();
    for (;;) {
      const auto pause = std::min(deadline_ - Clock::now(), maxPause());
      const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(pause).count();
      if (milliseconds <= 0) return false;
      const int ready =
          ::poll(descriptors.data(), descriptors.size(), static_cast<int>(milliseconds));
      if (ready < 0 && errno != EINTR) return false;
      if (ready > 0) {
        awaited = {descriptors[0], descriptors[1]};
        return descriptors[2].revents == 0;
      }
      if (isIdle()) return false;
    }
  }

 private:
  Clock::duration maxPause() const {
    constexpr int looks = 4;  // at what the child does, while it would be allowed to do nothing
    return limits_.idleTime / looks;
  }

  bool isIdle() {
    const Clock::time_point now = Clock::now();
    std::string time = child_.processorTime();
    const bool isUnknown = time.empty();  // then only the limit of time counts
    if (isUnknown || time != lastProcessorTime_) {
      lastProcessorTime_ = std::move(time);
      lastSign_ = now;
    }
    return now - lastSign_ >= limits_.idleTime;
  }

  const SpawnedChild& child_;
  const int interrupt_;
  const Limits& limits_;
  const Clock::time_point deadline_;
  Clock::time_point lastSign_;
  std::string lastProcessorTime_;
};

}  // namespace

bool Allowance::take(std::size_t bytes) {
  std::size_t left = left_;
  do {
    if (left < bytes) return false;
  } while (!left_.compare_exchange_weak(left, left - bytes));
  return true;
}

std::optional<Output> run(const Command& command, const Limits& limits, std::stop_token stop) {
  const FileDescriptor interrupt(::eventfd(0, EFD_CLOEXEC));
  Stream output(limits.output, limits.allowance);
  Stream errors(limits.errors, nullptr);
  if (!interrupt.isOpen() || !output.isOpen() || !errors.isOpen()) return std::nullopt;
  const std::stop_callback interruptOnStop(stop, [&interrupt] {
    const std::uint64_t one = 1;
    static_cast<void>(!::write(interrupt.get(), &one, sizeof one));
  });

  SpawnedChild child(command, output.writeEnd(), errors.writeEnd());
  output.closeWriteEnd();
  errors.closeWriteEnd();
  if (!child.isRunning()) return std::nullopt;

  Wait wait(child, interrupt.get(), limits);
  while (output.isOpen() || errors.isOpen()) {
    std::array<pollfd, 2> streams{pollfd{output.readEnd(), POLLIN, 0},
                                  pollfd{errors.readEnd(), POLLIN, 0}};
    if (!wait.forEither(streams)) return std::nullopt;
    if (streams[0].revents != 0 && !output.read()) return std::nullopt;
    if (streams[1].revents != 0 && !errors.read()) return std::nullopt;
  }
  std::array<pollfd, 2> end{pollfd{child.ended(), POLLIN, 0}, pollfd{-1, 0, 0}};
  if (!wait.forEither(end)) return std::nullopt;
  const int status = child.reap();
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return std::nullopt;
  return Output{.text = output.take(), .errors = errors.take()};
}

}  // namespace broomtide::ChildProcess
