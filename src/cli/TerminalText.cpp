#include "cli/TerminalText.h"

#include <unicode/uchar.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "core/Utf8.h"

namespace broomtide::cli {
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

// As terminals lay characters out.
std::size_t columnsOf(char32_t codePoint) {
  const auto character = static_cast<UChar32>(codePoint);
  const int type = u_charType(character);
  if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK) return 0;
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
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
  std::string result;
  result.reserve(name.size());
  while (!name.empty()) {
    const utf8::Sequence sequence = utf8::decode(name);
    const std::string_view bytes = name.substr(0, sequence.length);
    if (isControl(sequence.codePoint) || isDeceptive(sequence.codePoint) ||
        sequence.codePoint == '\\') {
      result += escape(sequence.codePoint);
    } else {
      result += utf8::printable(bytes);
    }
    name.remove_prefix(sequence.length);
  }
  return result;
}

std::size_t columns(std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    const utf8::Sequence sequence = utf8::decode(text);
    count += columnsOf(sequence.codePoint);
    text.remove_prefix(sequence.length);
  }
  return count;
}

std::string shortened(std::string_view text, std::size_t most) {
  if (columns(text) <= most) return std::string(text);
  if (most == 0) return {};
  std::vector<utf8::Sequence> characters;
  for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(characters.back().length)) {
    characters.push_back(utf8::decode(rest));
  }
  // The head takes what the tail and the dots leave over.
  std::size_t tailBytes = 0;
  std::size_t tailColumns = 0;
  for (auto last = characters.rbegin(); tailColumns + columnsOf(last->codePoint) <= (most - 1) / 2;
       ++last) {
    tailColumns += columnsOf(last->codePoint);
    tailBytes += last->length;
  }
  std::size_t headBytes = 0;
  std::size_t headColumns = 0;
  for (auto next = characters.begin();
       headColumns + columnsOf(next->codePoint) <= most - 1 - tailColumns; ++next) {
    headColumns += columnsOf(next->codePoint);
    headBytes += next->length;
  }
  return std::string(text.substr(0, headBytes)) + "…" +
         std::string(text.substr(text.size() - tailBytes));
}

bool takesEscapes(int descriptor) {
  const char* terminal = std::getenv("TERM");
  const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  return ::isatty(descriptor) == 1 && !isDumb;
}

Style Style::forDescriptor(int descriptor) {
  const char* noColour = std::getenv("NO_COLOR");
  const bool isUnwanted = noColour != nullptr && noColour[0] != '\0';
  return Style(takesEscapes(descriptor) && !isUnwanted);
}

std::string Style::operator()(Role role, std::string_view text) const {
  if (!hasColours_) return std::string(text);
  constexpr std::array codes{"1", "1;32", "1;33", "1;31", "2"};
  std::string result = "\x1b[";
  result += codes.at(static_cast<std::size_t>(role));
  result += 'm';
  result += text;
  return result + "\x1b[0m";
}

}  // namespace broomtide::cli
