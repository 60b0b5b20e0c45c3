#pragma once

#include <string>
#include <string_view>

#include "cli/ExitStatus.h"

namespace broomtide::cli {

/// Tells on standard error, in one line, what failed and why. Both may hold names.
ExitStatus fail(const std::string& subject, std::string_view reason);

/// The same for a failure that is about nothing in particular.
ExitStatus fail(std::string_view reason);

/// Writes out what standard output still holds; a failure to do so is told.
ExitStatus finishOutput();

}  // namespace broomtide::cli
