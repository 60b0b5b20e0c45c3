#pragma once

#include <string>
#include <string_view>

namespace broomtide {

/// A path with every byte outside the unreserved set (letters, digits, "-", ".", "_", "~")
/// percent-encoded; slashes stay.
std::string percentEncoded(std::string_view path);

/// An absolute path as a `file://` URL, percent-encoded. There is no trailing slash except for the
/// root folder.
std::string fileUrl(std::string_view path);

}  // namespace broomtide
