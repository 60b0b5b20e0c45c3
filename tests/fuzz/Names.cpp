#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <string>

#include "cli/TerminalText.h"
#include "core/EscapedText.h"
#include "core/Paths.h"
#include "core/Utf8.h"
#include "fuzz/Input.h"

namespace broomtide::fuzz {
namespace {

// Compares every step through the text with what ICU reads there.
void checkUtf8(std::string_view text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size();) {
    const utf8::Sequence found = utf8::decode(text.substr(at));
    std::size_t end = at;
    UChar32 character = 0;
    U8_NEXT(reinterpret_cast<const std::uint8_t*>(text.data()), end, text.size(), character);
    require(found.isValid == (character >= 0) && at + found.length == end &&
                (character < 0 || found.codePoint == static_cast<char32_t>(character)),
            "UTF-8 is read as ICU reads it");
    shown += found.isValid ? text.substr(at, found.length) : "\uFFFD";
    at = end;
  }
  require(utf8::printable(text) == shown, "what is no text is replaced");
}

void checkHarmless(std::string_view shown) {
  UChar32 before = 0;
  for (std::size_t at = 0; at < shown.size();) {
    UChar32 character = 0;
    U8_NEXT(reinterpret_cast<const std::uint8_t*>(shown.data()), at, shown.size(), character);
    require(character >= 0, "what is shown is UTF-8");
    constexpr std::uint32_t acting =
        U_GC_CC_MASK | U_GC_CF_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK | U_GC_CS_MASK;
    require((U_GET_GC_MASK(character) & acting) == 0, "nothing that is shown acts");
    const bool isColouredForm = character == 0xFE0F && u_hasBinaryProperty(before, UCHAR_EMOJI);
    require(isColouredForm || !u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT),
            "all that is shown is seen");
    before = character;
  }
}

void checkShortened(const std::string& shown) {
  const std::size_t all = cli::displayWidth(shown);
  for (const std::size_t most : {std::size_t{0}, std::size_t{1}, std::size_t{3}, all / 2, all}) {
    const std::string result = cli::elideMiddle(shown, most);
    require(cli::displayWidth(result) <= most, "a shortened text has no more columns than allowed");
    require(all > most || result == shown, "a text with room stays");
    require(all <= most || most == 0 || result.find("…") != std::string::npos,
            "a shortened text says so");
    checkHarmless(result);
  }
}

void checkUrl(const std::string& path) {
  const std::string encoded = paths::percentEncoded(path);
  require(paths::percentDecoded(encoded) == path, "decoding gives every byte back");
  require(encoded.find_first_of("\\ \"\n\t?#;&") == std::string::npos, "nothing in a URL acts");
}

void check(std::string_view name, std::string_view other) {
  checkUtf8(name);
  const std::string shown = escaped(name);
  checkHarmless(shown);
  checkShortened(shown);
  const bool areText = utf8::printable(name) == name && utf8::printable(other) == other;
  require(!areText || name == other || shown != escaped(other),
          "different names are shown differently");
  checkUrl(std::string(name));
}

}  // namespace
}  // namespace broomtide::fuzz

// Inputs are a name and another one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view other = broomtide::fuzz::text(data, size);
  const std::string_view name = broomtide::fuzz::takePart(other);
  broomtide::fuzz::check(name, other);
  return 0;
}
