#pragma once

#include <string>
#include <string_view>

namespace broomtide::cli {

/// How the program ends.
enum class ExitStatus : int {
  done = 0,
  failed = 1,         ///< the operation failed; the reason is on standard error
  wrongUsage = 2,     ///< the command line makes no sense
  someLeftAlone = 3,  ///< the cleanup is over, but not every item was moved
  interrupted = 130,
};

/// Tells on standard error, in one line, what failed and why. Both may hold names.
ExitStatus fail(const std::string& subject, std::string_view reason);

/// The same for a failure that is about nothing in particular.
ExitStatus fail(std::string_view reason);

/// Writes out what standard output still holds; a failure to do so is told.
ExitStatus finishOutput();

}  // namespace broomtide::cli
