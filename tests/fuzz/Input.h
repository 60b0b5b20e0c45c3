#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// What every target needs to take an input apart and to say what is wrong with it.
namespace broomtide::fuzz {

/// What separates the parts of an input that has several, so that seeds can be read and written as
/// text.
inline constexpr char separator = '\x1e';

inline std::string_view text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// What stands before the next separator, or all there is; it is taken off with its separator.
inline std::string_view takePart(std::string_view& rest) {
  const std::string_view part = rest.substr(0, rest.find(separator));
  rest.remove_prefix(std::min(part.size() + 1, rest.size()));
  return part;
}

/// Ends the program, as a find of the fuzzer, unless the property holds.
inline void require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", property);
  std::abort();
}

}  // namespace broomtide::fuzz
