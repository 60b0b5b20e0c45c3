#pragma once

#include <cstdint>

namespace broomtide::soak {

/// What has been done so far.
struct Figures {
  std::uint64_t rounds = 0;
  std::uint64_t candidates = 0;  ///< offered, and found to be what they should be
  std::uint64_t moved = 0;
  std::uint64_t refused = 0;  ///< left alone for the reason that there was
  std::uint64_t restored = 0;
  std::uint64_t entriesCompared = 0;  ///< of trees, before and after
  std::uint64_t bytesCompared = 0;
};

}  // namespace broomtide::soak
