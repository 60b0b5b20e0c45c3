#pragma once

#include <chrono>
#include <cstdint>

#include "soak/Figures.h"
#include "soak/Footprint.h"

namespace broomtide::soak {

/// Says how far a run has come: a line every ten seconds, and one at its end.
class Progress {
 public:
  using Clock = std::chrono::steady_clock;

  /// Writes a line when it is time for one.
  void afterRound(const Figures& figures, const Footprint& footprint);

  /// The closing lines.
  void finish(const Figures& figures, const Footprint& footprint, std::uint64_t seed,
              std::uint64_t firstRound) const;

  /// How long the run has taken.
  std::chrono::seconds time() const {
    return std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begin_);
  }

 private:
  const Clock::time_point begin_ = Clock::now();
  Clock::time_point nextLine_ = begin_ + std::chrono::seconds(10);
};

}  // namespace broomtide::soak
