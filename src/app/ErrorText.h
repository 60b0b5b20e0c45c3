#pragma once

#include <exception>
#include <string>

namespace broomtide {

/// What people read of an error: the system's own text where the system failed.
std::string errorText(const std::exception& error);

}  // namespace broomtide
