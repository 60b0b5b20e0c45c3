#include "support/TrashReader.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <system_error>

#include "core/Date.h"

namespace broomtide::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view suffix = ".trashinfo";

std::string contentsOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot be read: " + path.native());
  return {std::istreambuf_iterator<char>(file), {}};
}

std::set<std::string> namesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
  return names;
}

// Takes `expected` off the beginning of the text.
bool take(std::string_view expected, std::string_view& text) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

std::string_view takeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(line.size());
  return line;
}

bool isPlain(char byte) {
  constexpr std::string_view marks = "-._~/";
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
         (byte >= '0' && byte <= '9') || marks.find(byte) != std::string_view::npos;
}

// Everything that must be encoded is, nothing else, and with capital letters.
bool isEncodedPath(std::string_view text) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (isPlain(text[position])) continue;
    if (text[position] != '%' || text.size() - position < 3) return false;
    const auto high = digits.find(text[++position]);
    const auto low = digits.find(text[++position]);
    if (high == std::string_view::npos || low == std::string_view::npos) return false;
    const std::size_t value = high * 16 + low;
    if (value == 0 || isPlain(static_cast<char>(value))) return false;
  }
  return !text.empty();
}

bool isDate(const std::string& text) { return dateFromIso8601(text + 'Z').has_value(); }

}  // namespace

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string decoded;
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (text[position] != '%') {
      decoded += text[position];
      continue;
    }
    const std::string_view digits = text.substr(position + 1, 2);
    if (digits.size() < 2 ||
        digits.find_first_not_of("0123456789ABCDEFabcdef") != std::string_view::npos) {
      return std::nullopt;
    }
    decoded += static_cast<char>(std::stoi(std::string(digits), nullptr, 16));
    position += 2;
  }
  return decoded;
}

std::optional<TrashInfo> parseTrashInfo(std::string_view text) {
  if (!take("[Trash Info]\nPath=", text)) return std::nullopt;
  const std::string_view path = takeLine(text);
  if (!isEncodedPath(path) || !take("\nDeletionDate=", text)) return std::nullopt;
  const std::string date(takeLine(text));
  if (!isDate(date) || text != "\n") return std::nullopt;
  return TrashInfo{.path = percentDecoded(path).value(), .deletionDate = date};
}

std::vector<TrashedItem> trashedItems(const std::string& trash) {
  std::set<std::string> files = namesIn(fs::path(trash) / "files");
  std::vector<TrashedItem> items;
  for (const std::string& infoName : namesIn(fs::path(trash) / "info")) {
    const std::string name =
        infoName.substr(0, infoName.size() - std::min(suffix.size(), infoName.size()));
    const auto info = parseTrashInfo(contentsOf(fs::path(trash) / "info" / infoName));
    if (!infoName.ends_with(suffix) || !info || files.erase(name) == 0) {
      throw std::runtime_error("tells of no item: " + infoName);
    }
    items.push_back({.name = name, .info = *info});
  }
  if (!files.empty()) throw std::runtime_error("without information: " + *files.begin());
  return items;
}

void restore(const std::string& trash, const TrashedItem& item, const std::string& top) {
  const fs::path from = fs::path(trash) / "files" / item.name;
  const fs::path to = fs::path(top) / item.info.path;
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) {
    throw std::system_error(errno, std::generic_category(), to.native());
  }
  if (!fs::remove(fs::path(trash) / "info" / (item.name + std::string(suffix)))) {
    throw std::runtime_error("there was no information: " + item.name);
  }
}

}  // namespace broomtide::test
