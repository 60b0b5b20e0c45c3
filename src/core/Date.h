#pragma once

#include <chrono>
#include <string>

namespace broomtide {

/// An absolute point in time.
using Date = std::chrono::sys_time<std::chrono::nanoseconds>;

/// The date as ISO 8601 in UTC, `2025-03-01T09:30:00Z`; nine decimals of a second are added when
/// the date does not fall on a whole second.
std::string iso8601(Date date);

}  // namespace broomtide
