#pragma once

#include <string>
#include <string_view>

namespace broomtide {

/// An absolute path as a `file://` URL: every byte outside the unreserved set (letters, digits,
/// "-", ".", "_", "~") is percent-encoded, slashes stay, and there is no trailing slash except for
/// the root folder.
std::string fileUrl(std::string_view path);

}  // namespace broomtide
