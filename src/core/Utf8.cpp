#include "core/Utf8.h"

#include <cstdint>

namespace broomtide::utf8 {
namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr std::string_view replacementBytes = "\xEF\xBF\xBD";

struct Lead {
  std::size_t length;
  std::uint8_t lowestSecond;   // the second byte is narrower than 80..BF after some leads,
  std::uint8_t highestSecond;  // which rules out overlong forms, surrogates and too large values
};

Lead classify(std::uint8_t byte) {
  if (byte >= 0xC2 && byte <= 0xDF) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {1, 0, 0};
}

}  // namespace

Sequence decode(std::string_view text) {
  const auto first = static_cast<std::uint8_t>(text[0]);
  if (first < 0x80) return {1, first, true};
  const Lead lead = classify(first);
  if (lead.length == 1) return {1, replacement, false};

  char32_t codePoint = first & (0x7FU >> lead.length);
  for (std::size_t index = 1; index < lead.length; ++index) {
    if (index >= text.size()) return {index, replacement, false};
    const auto byte = static_cast<std::uint8_t>(text[index]);
    const std::uint8_t lowest = index == 1 ? lead.lowestSecond : 0x80;
    const std::uint8_t highest = index == 1 ? lead.highestSecond : 0xBF;
    if (byte < lowest || byte > highest) return {index, replacement, false};
    codePoint = (codePoint << 6U) | (byte & 0x3FU);
  }
  return {lead.length, codePoint, true};
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
