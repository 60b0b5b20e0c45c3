#pragma once

namespace broomtide::cli {

/// How the program ends.
enum class ExitStatus : int {
  done = 0,
  failed = 1,         ///< the operation failed; the reason is on standard error
  wrongUsage = 2,     ///< the command line makes no sense
  someLeftAlone = 3,  ///< the cleanup is over, but not every item was moved
  interrupted = 130,
};

}  // namespace broomtide::cli
