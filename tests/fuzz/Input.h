#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

/// What every target needs to take an input apart and to say what is wrong with it.
namespace broomtide::fuzz {

/// What separates the parts of an input that has several, so that seeds can be read and written as
/// text.
inline constexpr char separator = '\x1e';

inline std::string_view text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// What stands before the next `end`, or all there is; it is taken off with its `end`.
inline std::string_view takePart(std::string_view& rest, char end = separator) {
  const std::string_view part = rest.substr(0, rest.find(end));
  rest.remove_prefix(std::min(part.size() + 1, rest.size()));
  return part;
}

/// The parts that each end with `end`, which may be missing after the last one.
inline std::vector<std::string_view> partsOf(std::string_view text, char end) {
  std::vector<std::string_view> parts;
  while (!text.empty()) parts.push_back(takePart(text, end));
  return parts;
}

/// Ends the program, as a find of the fuzzer, unless the property holds.
inline void require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", property);
  std::abort();
}

}  // namespace broomtide::fuzz
