#pragma once

#include <string>
#include <vector>

namespace broomtide::soak {

/// Runs Git in a folder, with none of the user's settings. Throws std::runtime_error when it fails.
void runGit(const std::string& folder, const std::vector<std::string>& arguments);

}  // namespace broomtide::soak
