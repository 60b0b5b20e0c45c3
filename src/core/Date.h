#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace broomtide {

/// An absolute point in time.
using Date = std::chrono::sys_time<std::chrono::nanoseconds>;

/// The date as ISO 8601 in UTC, `2025-03-01T09:30:00Z`; nine decimals of a second are added when
/// the date does not fall on a whole second.
std::string iso8601(Date date);

/// The date of a text such as `2025-03-01T09:30:00Z`, in whole seconds, or of one with an offset
/// from UTC, such as `2025-03-01T10:30:00+01:00`. Nothing for a text of any other form and for a
/// date that does not exist or that `Date` cannot hold.
std::optional<Date> dateFromIso8601(std::string_view text);

}  // namespace broomtide
