#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace broomtide::ChildProcess {

/// What to run. Arguments do not include the program's own name; the environment replaces this
/// process's own, and each of its entries has the form NAME=value.
struct Command {
  std::string executable;
  std::vector<std::string> arguments;
  std::vector<std::string> environment;
};

/// Bytes that several commands may write together. Safe to use from several threads at once.
class Allowance {
 public:
  explicit Allowance(std::size_t bytes) : left_(bytes) {}

  /// Takes so many bytes away; false, with nothing taken, when fewer are left.
  bool take(std::size_t bytes);

  /// Returns bytes that were taken and are no longer kept.
  void giveBack(std::size_t bytes) { left_ += bytes; }

 private:
  std::atomic<std::size_t> left_;
};

/// When a command is given up.
struct Limits {
  std::chrono::milliseconds time;  ///< how long it may run
  /// How long it may neither write nor use a processor. Then it waits for something that may never
  /// come, such as somebody who writes to a pipe.
  std::chrono::milliseconds idleTime = time;
  std::size_t output = std::size_t{1} << 30U;  ///< bytes that it may write to standard output
  std::size_t errors = std::size_t{1} << 20U;  ///< bytes that it may write to standard error
  /// From which every byte of standard output is taken as it arrives, when there is one. What a
  /// command has written that did not end well is given back.
  Allowance* allowance = nullptr;
};

/// What a command that ended well wrote.
struct Output {
  std::string text;    ///< to standard output
  std::string errors;  ///< to standard error
};

/// How much memory a child may map, in bytes, before its own allocations fail.
inline constexpr std::size_t memoryLimit = std::size_t{1} << 30U;

/// Runs a command without input and blocks until it has ended. Returns what it wrote, all of it, or
/// nothing when it cannot be started, does not exit with status 0, or exceeds a limit. In the last
/// case, and as soon as `stop` is asked to stop, the child is killed together with every process it
/// has started in its group. Safe to call from several threads at once.
std::optional<Output> run(const Command& command, const Limits& limits, std::stop_token stop);

}  // namespace broomtide::ChildProcess
