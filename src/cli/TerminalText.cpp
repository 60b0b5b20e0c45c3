#include "cli/TerminalText.h"

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

// Separators that break lines, marks that turn the direction of text, and invisible characters.
bool isDeceptive(char32_t codePoint) {
  return codePoint == 0x061C || (codePoint >= 0x200B && codePoint <= 0x200F) ||
         (codePoint >= 0x2028 && codePoint <= 0x202E) ||
         (codePoint >= 0x2060 && codePoint <= 0x206F) || codePoint == 0xFEFF;
}

std::string escape(char32_t codePoint) {
  if (codePoint == '\n') return "\\n";
  if (codePoint == '\t') return "\\t";
  if (codePoint == '\r') return "\\r";
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), codePoint < 0x100 ? "\\x%02x" : "\\u%04x",
                static_cast<unsigned>(codePoint));
  return text.data();
}

}  // namespace

std::string visible(std::string_view name) {
  std::string result;
  result.reserve(name.size());
  while (!name.empty()) {
    const utf8::Sequence sequence = utf8::decode(name);
    const std::string_view bytes = name.substr(0, sequence.length);
    if (isControl(sequence.codePoint) || isDeceptive(sequence.codePoint)) {
      result += escape(sequence.codePoint);
    } else {
      result += utf8::printable(bytes);
    }
    name.remove_prefix(sequence.length);
  }
  return result;
}

std::size_t columns(std::string_view text) { return utf8::characterCount(text); }

std::string shortened(std::string_view text, std::size_t most) {
  if (columns(text) <= most) return std::string(text);
  if (most == 0) return {};
  std::vector<std::string_view> characters;
  for (std::string_view rest = text; !rest.empty();) {
    characters.push_back(rest.substr(0, utf8::decode(rest).length));
    rest.remove_prefix(characters.back().size());
  }
  const std::size_t tail = (most - 1) / 2;
  const std::size_t head = most - 1 - tail;
  std::string result;
  for (std::size_t index = 0; index < head; ++index) result += characters[index];
  result += "…";
  for (std::size_t index = characters.size() - tail; index < characters.size(); ++index) {
    result += characters[index];
  }
  return result;
}

Style Style::forDescriptor(int descriptor) {
  const char* noColour = std::getenv("NO_COLOR");
  const bool isUnwanted = noColour != nullptr && noColour[0] != '\0';
  const char* terminal = std::getenv("TERM");
  const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  return Style(::isatty(descriptor) == 1 && !isUnwanted && !isDumb);
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
