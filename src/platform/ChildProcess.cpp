#include "platform/ChildProcess.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <utility>

#include "platform/FileDescriptor.h"
#include "platform/SpawnedChild.h"

namespace broomtide::ChildProcess {
namespace {

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
      const auto pause = std::min(deadline_ - Clock::now(), longestPause());
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
  Clock::duration longestPause() const {
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

std::optional<Output> run(const Command& command, const Limits& limits, std::stop_token stop) {
  const FileDescriptor interrupt(::eventfd(0, EFD_CLOEXEC));
  Stream output(limits.output);
  Stream errors(limits.errors);
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
