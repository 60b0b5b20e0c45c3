#pragma once

#include <cstddef>

namespace broomtide::test {

/// The number of descriptors that this process has open.
std::size_t openDescriptors();

/// Whether this process has a child, running or ended and not waited for.
bool hasChildren();

}  // namespace broomtide::test
