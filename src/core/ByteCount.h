#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace broomtide {

/// A number of bytes as people read it, in its parts.
struct ByteCount {
  std::string number;     ///< digits, with a point before decimals and a sign; "Zero" for none
  std::string_view unit;  ///< "byte", "bytes" or "KB" to "EB"
};

/// A number of bytes in the unit that suits it.
ByteCount byteCount(std::int64_t bytes);

/// A number of bytes as people read file sizes: decimal multiples, "Zero KB", "1 byte",
/// "999 bytes", whole KB, MB with at most one decimal, larger units with at most two.
std::string formatByteCount(std::int64_t bytes);

}  // namespace broomtide
