#pragma once

#include <map>
#include <string>

namespace broomtide::test {

/// Where each item of the Trash folder at a path was, and where it is now. Throws when one is
/// missing, or its information is, or differs from what Broomtide writes by as little as a blank.
std::map<std::string, std::string> trashedItems(const std::string& trash);

}  // namespace broomtide::test
