#pragma once

#include <algorithm>

namespace broomtide {

/// Whether no two rows of a table have the same identifier; for checks while compiling.
constexpr bool hasUniqueIds(const auto& table) {
  return std::ranges::all_of(table, [&table](const auto& row) {
    return std::ranges::count_if(table, [&row](const auto& other) { return other.id == row.id; }) ==
           1;
  });
}

}  // namespace broomtide
