#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Locations are absolute paths, kept as the bytes that the file system uses, in standardised
/// form: lexically normal, without a trailing slash, symlinks not resolved. The functions here work
/// on the text alone.
namespace broomtide::paths {

/// The standardised form of an absolute or relative path. The root folder is "/".
std::string standardized(std::string_view path);

/// The part after the last slash; "/" for the root folder.
std::string_view lastComponent(std::string_view path);

/// The folder that holds the last component of a standardised absolute path; "/" for the root
/// folder.
std::string_view enclosingFolder(std::string_view path);

/// `name` (one component or a relative path) below the standardised folder `folder`.
std::string appending(std::string_view folder, std::string_view name);

/// Whether `path` begins with `folder` followed by a slash. Both standardised.
bool isBelow(std::string_view path, std::string_view folder);

/// The path of `item` relative to `root`: what follows `root` and one slash, or the last component
/// of an item that does not lie below `root`. Both are standardised first.
std::string relativePath(std::string_view item, std::string_view root);

/// The text after the last dot of a name; empty for a name without a dot and for a name whose only
/// dot leads it.
std::string_view pathExtension(std::string_view name);

/// Whether two texts are equal when the case of ASCII letters is ignored.
bool equalIgnoringCase(std::string_view left, std::string_view right);

/// The byte order of two texts when the case of ASCII letters is ignored.
bool lessIgnoringCase(std::string_view left, std::string_view right);

/// A path with every byte outside the unreserved set (letters, digits, "-", ".", "_", "~")
/// percent-encoded; slashes stay.
std::string percentEncoded(std::string_view path);

/// A path as one word of a command for a POSIX shell.
std::string shellQuoted(std::string_view path);

/// An absolute path as a `file://` URL, percent-encoded. There is no trailing slash except for the
/// root folder.
std::string fileUrl(std::string_view path);

/// The bytes of a percent-encoded text; nothing when a "%" is not followed by two hexadecimal
/// digits.
std::optional<std::string> percentDecoded(std::string_view text);

}  // namespace broomtide::paths
