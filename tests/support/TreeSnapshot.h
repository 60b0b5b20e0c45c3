#pragma once

#include <string>
#include <vector>

namespace broomtide::test {

/// Everything below a folder: a line for each entry with its path, type, permissions, modification
/// date and what it holds (of a file beyond 16 MiB only how long it is), by path. Nothing is left
/// out but what looking at it changes.
std::vector<std::string> snapshotOf(const std::string& root);

}  // namespace broomtide::test
