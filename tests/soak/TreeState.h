#pragma once

#include <string>
#include <vector>

#include "soak/Figures.h"

namespace broomtide::soak {

/// The item at a path and everything below it, also in folders that cannot be read: a line for each
/// with its contents, permissions and date, in which its own name is ".". Nothing is changed that
/// shows in another state.
using TreeState = std::vector<std::string>;
TreeState stateOf(const std::string& path);

/// Throws a Mismatch that shows the first difference. What is the same is counted.
void requireSame(const TreeState& found, const TreeState& expected, const std::string& what,
                 Figures& figures);

}  // namespace broomtide::soak
