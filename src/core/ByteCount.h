#pragma once

#include <cstdint>
#include <string>

namespace broomtide {

/// A number of bytes as people read file sizes: decimal multiples, "Zero KB", "1 byte",
/// "999 bytes", whole KB, MB with at most one decimal, larger units with at most two.
std::string formatByteCount(std::int64_t bytes);

}  // namespace broomtide
