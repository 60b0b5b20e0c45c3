#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>

#include "cli/CommandLine.h"
#include "cli/Failure.h"

namespace broomtide::cli {
namespace {

// Whoever started the program may have closed its standard streams, whose numbers other files would
// then get, or ignored the end of children, whose exit status would then be lost. A stream that was
// closed stays one that cannot be written to.
void repairStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    std::array<char, 1> nothing{};
    const bool isClosed = ::read(stream, nothing.data(), 0) < 0 && errno == EBADF &&
                          ::write(stream, nothing.data(), 0) < 0 && errno == EBADF;
    if (!isClosed) continue;
    [[maybe_unused]] const std::FILE* lowestNumber = std::fopen("/dev/null", "r");
  }
  std::signal(SIGCHLD, SIG_DFL);
}

}  // namespace
}  // namespace broomtide::cli

int main(int argumentCount, char** arguments) {
  using broomtide::cli::ExitStatus;
  broomtide::cli::repairStandardStreams();
  ExitStatus status = ExitStatus::failed;
  try {
    status = broomtide::cli::runCommandLine(argumentCount, arguments);
  } catch (const std::exception& failure) {
    status = broomtide::cli::fail(failure.what());
  }
  return static_cast<int>(status);
}
