#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>

namespace broomtide::soak {

/// The choices of one round: the same for the same seed and round, wherever it runs.
class Random {
 public:
  Random(std::uint64_t seed, std::uint64_t round) {
    std::seed_seq start{seed, seed >> 32U, round, round >> 32U};
    engine_.seed(start);
  }

  /// A number below `limit`, which is at least 1.
  std::size_t below(std::size_t limit) { return engine_() % limit; }

  bool chance(unsigned percent) { return below(100) < percent; }

  template <typename List>
  const auto& oneOf(const List& list) {
    return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(below(std::size(list))));
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace broomtide::soak
