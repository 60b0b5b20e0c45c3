#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace broomtide {

/// A new random UUID (version 4) in upper-case text form.
std::string newUuid();

/// The upper-case form of a UUID in its canonical text form of 36 characters, in either case;
/// nothing for any other text.
std::optional<std::string> canonicalUuid(std::string_view text);

}  // namespace broomtide
