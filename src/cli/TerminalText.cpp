#include "cli/TerminalText.h"

#include <unicode/uchar.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "core/Utf8.h"

namespace broomtide::cli {
namespace {

bool isPlain(char byte) { return byte >= ' ' && byte <= '~'; }

// As terminals lay characters out.
std::size_t displayWidthOf(char32_t codePoint) {
  if (codePoint < 0x80 && isPlain(static_cast<char>(codePoint))) return 1;
  const auto character = static_cast<UChar32>(codePoint);
  const int type = u_charType(character);
  if (type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK) return 0;
  const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
  const auto special = std::ranges::find_if_not(text, isPlain);
  std::size_t count = static_cast<std::size_t>(special - text.begin());
  text.remove_prefix(count);
  while (!text.empty()) {
    const utf8::Sequence sequence = utf8::decode(text);
    count += displayWidthOf(sequence.codePoint);
    text.remove_prefix(sequence.length);
  }
  return count;
}

std::string elideMiddle(std::string_view text, std::size_t most) {
  if (displayWidth(text) <= most) return std::string(text);
  if (most == 0) return {};
  std::vector<utf8::Sequence> characters;
  for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(characters.back().length)) {
    characters.push_back(utf8::decode(rest));
  }
  // The head takes what the tail and the dots leave over. A mark that belongs to the letter before
  // it does not come without that.
  std::size_t tailBytes = 0;
  std::size_t tailColumns = 0;
  std::size_t passedBytes = 0;
  for (auto last = characters.rbegin();
       tailColumns + displayWidthOf(last->codePoint) <= (most - 1) / 2; ++last) {
    passedBytes += last->length;
    if (displayWidthOf(last->codePoint) == 0) continue;
    tailColumns += displayWidthOf(last->codePoint);
    tailBytes = passedBytes;
  }
  std::size_t headBytes = 0;
  std::size_t headColumns = 0;
  for (auto next = characters.begin();
       headColumns + displayWidthOf(next->codePoint) <= most - 1 - tailColumns; ++next) {
    headColumns += displayWidthOf(next->codePoint);
    headBytes += next->length;
  }
  return std::string(text.substr(0, headBytes)) + "…" +
         std::string(text.substr(text.size() - tailBytes));
}

std::string padding(std::size_t used, std::size_t width) {
  return std::string(width > used ? width - used : 0, ' ');
}

bool takesEscapes(int descriptor) {
  const char* terminal = std::getenv("TERM");
  const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  return ::isatty(descriptor) == 1 && !isDumb;
}

TerminalStyle TerminalStyle::forDescriptor(int descriptor) {
  const char* noColour = std::getenv("NO_COLOR");
  const bool isUnwanted = noColour != nullptr && noColour[0] != '\0';
  return TerminalStyle(takesEscapes(descriptor) && !isUnwanted);
}

std::string TerminalStyle::operator()(Role role, std::string_view text) const {
  if (!hasColours_) return std::string(text);
  constexpr std::array codes{"1", "1;32", "1;33", "1;31", "2"};
  std::string result = "\x1b[";
  result += codes.at(static_cast<std::size_t>(role));
  result += 'm';
  result += text;
  return result + "\x1b[0m";
}

}  // namespace broomtide::cli
