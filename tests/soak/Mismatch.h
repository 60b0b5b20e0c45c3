#pragma once

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace broomtide::soak {

/// Something is not as it has to be, in words.
class Mismatch : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Throws a Mismatch unless `holds`.
inline void require(bool holds, const std::string& what) {
  if (!holds) throw Mismatch(what);
}

/// Throws a Mismatch that shows both values when they differ.
template <typename Value>
void requireEqual(const Value& found, const Value& expected, const std::string& what) {
  if (found == expected) return;
  throw Mismatch(what + ": found " + testing::PrintToString(found) + ", expected " +
                 testing::PrintToString(expected));
}

}  // namespace broomtide::soak
