#pragma once

#include <string>

#include "soak/Contents.h"
#include "soak/Plan.h"
#include "soak/Random.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// Makes a home folder with caches of developer tools, some of them empty, and what is none of
/// them. `name` is the folder's in the tree.
void buildHomeTree(const test::TemporaryTree& tree, const std::string& name, Plan& plan,
                   Random& random, Contents& contents);

}  // namespace broomtide::soak
