#pragma once

#include <sys/types.h>

#include <functional>
#include <string>

namespace broomtide::test {

/// Runs an action in a process of its own with this umask. The test fails when the action throws,
/// or fails an expectation, or the process ends in another way.
void withUmask(mode_t mask, const std::function<void()>& action);

/// Whether this kernel can keep threads from changing files and running programs.
bool hasLandlock();

/// The permissions of an item and its special bits. Throws std::system_error when it is not there.
mode_t permissionsOf(const std::string& path);

}  // namespace broomtide::test
