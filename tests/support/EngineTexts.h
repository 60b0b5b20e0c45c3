#pragma once

#include <set>
#include <string>

namespace broomtide::test {

/// Every constant text that the engine hands to a window: titles of enumerations, what the tables
/// of rules and cache locations say, messages, what folder dialogs say, and what the system says
/// about files.
std::set<std::string> engineTexts();

}  // namespace broomtide::test
