#pragma once

#include <string>

#include "soak/Random.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// A name that is not taken in a folder of the tree, often one that has broken programs before,
/// with `ending` at its end.
std::string freeName(const test::TemporaryTree& tree, const std::string& folder, Random& random,
                     const std::string& ending = "");

}  // namespace broomtide::soak
