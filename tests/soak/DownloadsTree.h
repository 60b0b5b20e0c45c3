#pragma once

#include <string>

#include "soak/Contents.h"
#include "soak/Plan.h"
#include "soak/Random.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// Makes a Downloads folder with files of many kinds, old enough to be offered and not, in folders
/// inside each other. `name` is the folder's in the tree.
void buildDownloadsTree(const test::TemporaryTree& tree, const std::string& name, Plan& plan,
                        Random& random, Contents& contents);

}  // namespace broomtide::soak
