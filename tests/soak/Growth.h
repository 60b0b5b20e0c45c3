#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

namespace broomtide::soak {

/// Judges whether an amount of memory rises from round to round: the lowest of the last readings
/// against the highest of the last ones of the warm-up, because single readings are higher after a
/// round with many items.
class Growth {
 public:
  static constexpr std::uint64_t warmUp = 40;  // readings
  static constexpr std::size_t readingsTogether = 20;

  /// `what` is what people read; it may rise by `most` bytes.
  Growth(std::string what, std::size_t most) : what_(std::move(what)), most_(most) {}

  /// Takes a reading, in bytes. Throws a Mismatch when too much has been added since the warm-up.
  void add(std::size_t bytes);

  /// What is compared with; the first reading before the end of the warm-up.
  std::size_t first() const { return first_; }
  std::size_t last() const { return readings_.empty() ? 0 : readings_.back(); }
  std::size_t most() const { return most_; }

  /// Whether there were enough readings to find anything.
  bool isJudged() const { return count_ >= warmUp + readingsTogether; }

 private:
  const std::string what_;
  const std::size_t most_;
  std::uint64_t count_ = 0;
  std::size_t first_ = 0;
  std::deque<std::size_t> readings_;
};

}  // namespace broomtide::soak
