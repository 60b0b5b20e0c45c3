#pragma once

#include <string>
#include <vector>

namespace broomtide {

/// The positions of the names in the order in which file managers list them: digits by their value,
/// upper and lower case together, by the rules of the user's language. Equal names keep their
/// order.
std::vector<std::size_t> naturalOrder(const std::vector<std::string>& names);

}  // namespace broomtide
