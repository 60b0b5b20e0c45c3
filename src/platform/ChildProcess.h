#pragma once

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

/// What a command that ended well wrote.
struct Output {
  std::string text;    ///< to standard output
  std::string errors;  ///< the beginning of what it wrote to standard error
};

/// How much memory a child may map, in bytes, before its own allocations fail.
inline constexpr std::size_t memoryLimit = std::size_t{4} << 30U;

/// Runs a command without input and blocks until it has ended. Returns what it wrote, or nothing
/// when it cannot be started, does not exit with status 0, or runs longer than `limit`. In the last
/// case, and as soon as `stop` is asked to stop, the child is killed together with every process it
/// has started in its group. Safe to call from several threads at once.
std::optional<Output> run(const Command& command, std::chrono::milliseconds limit,
                          std::stop_token stop);

}  // namespace broomtide::ChildProcess
