#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace broomtide {

/// Keys that are ordered by their bytes, one after the other in one piece of memory.
class SortKeys {
 public:
  /// `count` keys of about `bytes` bytes in all are added without moving any. More may be.
  SortKeys(std::size_t count, std::size_t bytes);

  /// Adds a key, which has no zero byte but at its end.
  void add(std::span<const std::uint8_t> key);

  /// The positions of the keys in the order of their bytes; equal keys keep their order.
  std::vector<std::size_t> order() const;

 private:
  std::vector<std::uint8_t> bytes_;  // each key with zeros behind it, up to a whole word
  std::vector<std::size_t> starts_;
};

}  // namespace broomtide
