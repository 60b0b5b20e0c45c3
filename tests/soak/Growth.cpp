#include "soak/Growth.h"

#include <algorithm>

#include "soak/Mismatch.h"

namespace broomtide::soak {

void Growth::add(std::size_t bytes) {
  ++count_;
  readings_.push_back(bytes);
  if (readings_.size() > readingsTogether) readings_.pop_front();
  if (count_ == 1) first_ = bytes;
  if (count_ == warmUp) first_ = std::ranges::max(readings_);
  if (!isJudged()) return;
  const std::size_t lowest = std::ranges::min(readings_);
  require(lowest <= first_ + most_, what_ + " has risen from " + std::to_string(first_) + " to " +
                                        std::to_string(lowest) + " bytes, by more than " +
                                        std::to_string(most_));
}

}  // namespace broomtide::soak
