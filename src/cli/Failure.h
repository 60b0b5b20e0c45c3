#pragma once

#include <string>
#include <string_view>

#include "cli/ExitStatus.h"

namespace broomtide::cli {

/// Tells on standard error what failed and why.
ExitStatus fail(const std::string& subject, std::string_view reason);

/// Writes out what standard output still holds; a failure to do so is told.
ExitStatus finishOutput();

}  // namespace broomtide::cli
