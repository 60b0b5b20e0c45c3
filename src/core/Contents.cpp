#include "core/Contents.h"

#include <algorithm>
#include <functional>

namespace broomtide {

void Contents::add(Sign sign, std::string_view path) {
  const auto found = std::ranges::find(first_, sign, &std::pair<Sign, std::string>::first);
  if (found == first_.end()) {
    first_.emplace_back(sign, path);
  } else if (comesFirstInWalk(path, found->second)) {
    found->second = path;
  }
  // A sum, because parts of a folder are read in any order.
  constexpr std::uint64_t spread = 0x9E37'79B9'7F4A'7C15;
  fingerprint_ +=
      (std::hash<std::string_view>()(path) ^ static_cast<std::uint64_t>(sign)) * spread | 1;
}

std::string_view Contents::first(Sign sign) const {
  const auto found = std::ranges::find(first_, sign, &std::pair<Sign, std::string>::first);
  return found == first_.end() ? std::string_view() : std::string_view(found->second);
}

bool comesFirstInWalk(std::string_view left, std::string_view right) {
  // A slash sorts before every other byte.
  const auto rank = [](char byte) { return byte == '/' ? 0 : static_cast<unsigned char>(byte); };
  return std::ranges::lexicographical_compare(left, right, {}, rank, rank);
}

}  // namespace broomtide
