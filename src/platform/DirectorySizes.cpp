#include "platform/DirectorySizes.h"

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "core/FileUrl.h"

namespace broomtide {
namespace {

std::optional<unsigned> hexadecimalDigit(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A' + 10);
  if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a' + 10);
  return std::nullopt;
}

// Other programs leave other bytes as they are, so that a name may be written in several ways.
std::optional<std::string> percentDecoded(std::string_view text) {
  std::string decoded;
  while (!text.empty()) {
    char byte = text.front();
    std::size_t taken = 1;
    if (byte == '%') {
      if (text.size() < 3) return std::nullopt;
      const auto high = hexadecimalDigit(text[1]);
      const auto low = hexadecimalDigit(text[2]);
      if (!high || !low) return std::nullopt;
      byte = static_cast<char>(*high * 16 + *low);
      taken = 3;
    }
    decoded += byte;
    text.remove_prefix(taken);
  }
  return decoded;
}

bool isInteger(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() &&
         std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

// Of which folder a line tells; nothing for a line of another form.
std::optional<std::string> nameIn(std::string_view line) {
  for (int field = 0; field < 2; ++field) {
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos || !isInteger(line.substr(0, blank))) return std::nullopt;
    line.remove_prefix(blank + 1);
  }
  return percentDecoded(line);
}

}  // namespace

std::string withDirectorySizes(std::string_view text, const std::vector<DirectorySize>& added) {
  std::unordered_set<std::string> names;
  for (const DirectorySize& folder : added) names.insert(folder.name);
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    const std::optional<std::string> name = nameIn(line);
    if (!name || !names.contains(*name)) result.append(line).append("\n");
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  for (const DirectorySize& folder : added) {
    result += std::to_string(folder.size) + ' ' + std::to_string(folder.changedAt) + ' ' +
              percentEncoded(folder.name) + '\n';
  }
  return result;
}

}  // namespace broomtide
