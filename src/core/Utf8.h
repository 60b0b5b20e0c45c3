#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Names are bytes; these functions read them as UTF-8 where people or JSON need text.
namespace broomtide::utf8 {

/// One step through a text.
struct Sequence {
  std::size_t length;  ///< bytes taken, at least 1
  char32_t codePoint;  ///< what they encode; U+FFFD for bytes that are not UTF-8
  bool isValid;        ///< false for a longest possible run of bytes that begins no character
};

/// The sequence at the start of `text`, which must not be empty.
Sequence decode(std::string_view text);

/// The number of code points; a byte that is not UTF-8 counts as one.
std::size_t characterCount(std::string_view text);

/// The text with every sequence that is not UTF-8 replaced by U+FFFD.
std::string printable(std::string_view bytes);

}  // namespace broomtide::utf8
