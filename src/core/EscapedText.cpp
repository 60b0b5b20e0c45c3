#include "core/EscapedText.h"

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

// Separators that break lines, marks that turn the direction of text, and invisible characters.
bool isDeceptive(char32_t codePoint) {
  constexpr char32_t blankPattern = 0x2800;
  if (codePoint == 0x2028 || codePoint == 0x2029 || codePoint == blankPattern) return true;
  const auto character = static_cast<UChar32>(codePoint);
  return u_charType(character) == U_FORMAT_CHAR ||
         u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

// The mark that asks for the coloured form of the symbol before it is common in names. Behind
// anything else nobody sees it.
bool isColouredForm(char32_t codePoint, char32_t before) {
  constexpr char32_t mark = 0xFE0F;
  constexpr char32_t lastOfAscii = 0x7F;
  const auto symbol = static_cast<UChar32>(before);
  return codePoint == mark && before > lastOfAscii && u_hasBinaryProperty(symbol, UCHAR_EMOJI) &&
         !u_hasBinaryProperty(symbol, UCHAR_EMOJI_PRESENTATION);
}

bool isUnusual(const utf8::Sequence& sequence, char32_t before) {
  const char32_t codePoint = sequence.codePoint;
  if (!sequence.isValid || isControl(codePoint)) return true;
  return isDeceptive(codePoint) && !isColouredForm(codePoint, before);
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

std::string escaped(std::string_view name) {
  if (isPlain(name)) return std::string(name);
  std::string result;
  result.reserve(name.size());
  for (char32_t before = 0; !name.empty();) {
    const utf8::Sequence sequence = utf8::decode(name);
    const std::string_view bytes = name.substr(0, sequence.length);
    const bool isEscaped =
        sequence.isValid && (isUnusual(sequence, before) || sequence.codePoint == '\\');
    result += isEscaped ? escape(sequence.codePoint) : utf8::printable(bytes);
    before = sequence.codePoint;
    name.remove_prefix(sequence.length);
  }
  return result;
}

bool hasUnusualCharacters(std::string_view name) {
  if (isPlain(name)) return false;
  for (char32_t before = 0; !name.empty();) {
    const utf8::Sequence sequence = utf8::decode(name);
    if (isUnusual(sequence, before)) return true;
    before = sequence.codePoint;
    name.remove_prefix(sequence.length);
  }
  return false;
}

}  // namespace broomtide
