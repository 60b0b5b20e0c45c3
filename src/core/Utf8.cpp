#include "core/Utf8.h"

#include <unicode/utf8.h>

#include <cstdint>

namespace broomtide::utf8 {
namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr std::string_view replacementBytes = "\xEF\xBF\xBD";

}  // namespace

Sequence decode(std::string_view text) {
  std::size_t length = 0;
  UChar32 codePoint = 0;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
  U8_NEXT(bytes, length, text.size(), codePoint);
#pragma GCC diagnostic pop
  if (codePoint < 0) return {length, replacement, false};
  return {length, static_cast<char32_t>(codePoint), true};
}

std::size_t characterCount(std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    const Sequence sequence = decode(text);
    count += sequence.isValid ? 1 : sequence.length;
    text.remove_prefix(sequence.length);
  }
  return count;
}

std::string printable(std::string_view bytes) {
  std::string result;
  result.reserve(bytes.size());
  while (!bytes.empty()) {
    const Sequence sequence = decode(bytes);
    result += sequence.isValid ? bytes.substr(0, sequence.length) : replacementBytes;
    bytes.remove_prefix(sequence.length);
  }
  return result;
}

}  // namespace broomtide::utf8
