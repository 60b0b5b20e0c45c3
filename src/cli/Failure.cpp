#include "cli/Failure.h"

#include <cerrno>
#include <cstdio>
#include <iostream>
#include <system_error>

#include "core/EscapedText.h"

namespace broomtide::cli {

ExitStatus fail(const std::string& subject, std::string_view reason) {
  return fail(subject + ": " + std::string(reason));
}

ExitStatus fail(std::string_view reason) {
  std::fprintf(stderr, "broomtide-cli: %s\n", escaped(reason).c_str());
  return ExitStatus::failed;
}

ExitStatus finishOutput() {
  errno = 0;
  if (std::cout.flush()) return ExitStatus::done;
  const bool isKnown = errno != 0;  // else something failed before, and nothing was tried now
  return fail("standard output", isKnown ? std::generic_category().message(errno)
                                         : "Not everything could be written.");
}

}  // namespace broomtide::cli
