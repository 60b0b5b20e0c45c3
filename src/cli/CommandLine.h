#pragma once

#include "cli/Failure.h"

namespace broomtide::cli {

/// Does what the command line asks for, on the calling thread; mistakes in it and reasons for
/// failure go to standard error. Throws what its command throws.
ExitStatus runCommandLine(int argumentCount, char** arguments);

}  // namespace broomtide::cli
