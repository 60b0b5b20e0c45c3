#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <string>

#include "cli/TerminalText.h"
#include "core/EscapedText.h"
#include "core/Utf8.h"
#include "fuzz/Input.h"

namespace broomtide::fuzz {
namespace {

// What ICU reads at a place in a text, as the code under test would tell of it.
utf8::Sequence sequenceAt(std::string_view text, std::size_t start) {
  std::size_t end = start;
  UChar32 character = 0;
  U8_NEXT(reinterpret_cast<const std::uint8_t*>(text.data()), end, text.size(), character);
  if (character < 0) return {end - start, 0xFFFD, false};
  return {end - start, static_cast<char32_t>(character), true};
}

// Whether the text is UTF-8; compares every step through it with ICU's.
bool checkUtf8(std::string_view text) {
  std::string shown;
  std::size_t characters = 0;
  bool isValid = true;
  for (std::size_t at = 0; at < text.size();) {
    const utf8::Sequence expected = sequenceAt(text, at);
    const utf8::Sequence found = utf8::decode(text.substr(at));
    require(found.length == expected.length && found.codePoint == expected.codePoint &&
                found.isValid == expected.isValid,
            "UTF-8 is read as ICU reads it");
    shown += found.isValid ? text.substr(at, found.length) : "\uFFFD";
    characters += found.isValid ? 1 : found.length;
    isValid = isValid && found.isValid;
    at += found.length;
  }
  require(utf8::printable(text) == shown, "what is no text is replaced");
  require(utf8::characterCount(text) == characters, "characters are counted");
  return isValid;
}

bool isHarmless(UChar32 character, UChar32 before) {
  constexpr UChar32 colouredForm = 0xFE0F;
  switch (u_charType(character)) {
    case U_CONTROL_CHAR:
    case U_FORMAT_CHAR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
    case U_SURROGATE:
      return false;
    default:
      break;
  }
  if (u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL)) return false;
  const bool isOfSymbol = before >= 0x80 && u_hasBinaryProperty(before, UCHAR_EMOJI) &&
                          !u_hasBinaryProperty(before, UCHAR_EMOJI_PRESENTATION);
  return (character == colouredForm && isOfSymbol) ||
         !u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

void checkHarmless(std::string_view shown) {
  UChar32 before = 0;
  for (std::size_t at = 0; at < shown.size();) {
    const utf8::Sequence sequence = sequenceAt(shown, at);
    require(sequence.isValid, "what is shown is UTF-8");
    const auto character = static_cast<UChar32>(sequence.codePoint);
    require(isHarmless(character, before), "what is shown is harmless");
    before = character;
    at += sequence.length;
  }
}

// The name that a visible text stands for, unless bytes of it were no text.
std::string nameOf(std::string_view shown) {
  std::string name;
  while (!shown.empty()) {
    if (shown[0] != '\\') {
      name += shown[0];
      shown.remove_prefix(1);
      continue;
    }
    require(shown.size() > 1, "an escape is whole");
    constexpr std::string_view letters = "ntr\\xuU";
    constexpr std::string_view meanings = "\n\t\r\\";
    const std::size_t letter = letters.find(shown[1]);
    require(letter != std::string_view::npos, "an escape is one of those known");
    shown.remove_prefix(2);
    if (letter < meanings.size()) {
      name += meanings[letter];
      continue;
    }
    const std::size_t digits = std::size_t{2} << (letter - meanings.size());
    const std::string number(shown.substr(0, digits));
    require(number.size() == digits &&
                number.find_first_not_of("0123456789abcdef") == std::string::npos,
            "an escape has all its digits");
    shown.remove_prefix(digits);
    char bytes[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, static_cast<UChar32>(std::stoul(number, nullptr, 16)));
    name.append(bytes, length);
  }
  return name;
}

void checkShortened(const std::string& shown) {
  const std::size_t all = cli::columns(shown);
  for (const std::size_t most :
       {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{3}, std::size_t{10}, all / 2,
        all - std::min<std::size_t>(all, 1), all, all + 1}) {
    const std::string result = cli::shortened(shown, most);
    require(cli::columns(result) <= most, "a shortened text has no more columns than allowed");
    require(all > most || result == shown, "a text with room stays");
    checkHarmless(result);
    const std::size_t dots = result.find("…");
    if (all <= most || most == 0) continue;
    require(dots != std::string::npos, "a shortened text says so");
    if (shown.find("…") != std::string::npos) continue;
    const std::string_view tail = std::string_view(result).substr(dots + 3);
    require(shown.starts_with(result.substr(0, dots)) && shown.ends_with(tail) &&
                dots + tail.size() <= shown.size(),
            "both ends of a shortened text are those of the text");
  }
}

void check(std::string_view name) {
  const bool isValid = checkUtf8(name);
  const std::string shown = escaped(name);
  checkHarmless(shown);
  require(nameOf(shown) == (isValid ? std::string(name) : utf8::printable(name)),
          "different names are shown differently");
  checkShortened(shown);
}

}  // namespace
}  // namespace broomtide::fuzz

// Inputs are a name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  broomtide::fuzz::check(broomtide::fuzz::text(data, size));
  return 0;
}
