#pragma once

#include <string>

namespace broomtide {

/// A new random UUID (version 4) in upper-case text form.
std::string newUuid();

}  // namespace broomtide
