#pragma once

#include <string>
#include <vector>

namespace broomtide::test {

/// Everything below a folder: a line for each entry with its path, type, permissions, modification
/// date and what it holds (of a file beyond 16 MiB only how long it is), by path. Nothing is left
/// out but what looking at it changes.
std::vector<std::string> snapshotOf(const std::string& root);

/// The same for an item of any type, which has a line of its own by the name ".".
std::vector<std::string> snapshotOfItem(const std::string& path);

}  // namespace broomtide::test
