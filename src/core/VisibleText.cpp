#include "core/VisibleText.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "core/Utf8.h"

namespace broomtide {
namespace {

bool isControl(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

// Separators that break lines, marks that turn the direction of text, and invisible characters. The
// one that asks for the coloured form of a symbol is common in names and does no harm.
bool isDeceptive(char32_t codePoint) {
  constexpr char32_t colouredForm = 0xFE0F;
  constexpr char32_t blankPattern = 0x2800;
  if (codePoint == 0x2028 || codePoint == 0x2029 || codePoint == blankPattern) return true;
  if (u_charType(static_cast<UChar32>(codePoint)) == U_FORMAT_CHAR) return true;
  return codePoint != colouredForm &&
         u_hasBinaryProperty(static_cast<UChar32>(codePoint), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

bool isUnusual(const utf8::Sequence& sequence) {
  return !sequence.isValid || isControl(sequence.codePoint) || isDeceptive(sequence.codePoint);
}

// Most names are this plain, and lists of them are long.
bool isPlain(std::string_view name) {
  return std::ranges::all_of(name,
                             [](char byte) { return byte >= ' ' && byte <= '~' && byte != '\\'; });
}

std::string escape(char32_t codePoint) {
  if (codePoint == '\n') return "\\n";
  if (codePoint == '\t') return "\\t";
  if (codePoint == '\r') return "\\r";
  if (codePoint == '\\') return "\\\\";
  std::array<char, 16> text{};
  const char* format = codePoint < 0x80 ? "\\x%02x" : codePoint < 0x10000 ? "\\u%04x" : "\\U%08x";
  std::snprintf(text.data(), text.size(), format, static_cast<unsigned>(codePoint));
  return text.data();
}

}  // namespace

std::string visible(std::string_view name) {
  if (isPlain(name)) return std::string(name);
  std::string result;
  result.reserve(name.size());
  while (!name.empty()) {
    const utf8::Sequence sequence = utf8::decode(name);
    const std::string_view bytes = name.substr(0, sequence.length);
    const bool isEscaped = sequence.isValid && (isUnusual(sequence) || sequence.codePoint == '\\');
    result += isEscaped ? escape(sequence.codePoint) : utf8::printable(bytes);
    name.remove_prefix(sequence.length);
  }
  return result;
}

bool hasUnusualCharacters(std::string_view name) {
  if (isPlain(name)) return false;
  while (!name.empty()) {
    const utf8::Sequence sequence = utf8::decode(name);
    if (isUnusual(sequence)) return true;
    name.remove_prefix(sequence.length);
  }
  return false;
}

}  // namespace broomtide
