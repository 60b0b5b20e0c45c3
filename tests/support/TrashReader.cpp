#include "support/TrashReader.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <stdexcept>
#include <system_error>

#include "core/Date.h"
#include "core/Paths.h"

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

}  // namespace

std::optional<TrashInfo> parseTrashInfo(const std::string& text) {
  static const std::regex form("\\[Trash Info\\]\nPath=(.+)\nDeletionDate=(.+)\n");
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) return std::nullopt;
  const std::optional<std::string> path = paths::percentDecoded(parts[1].str());
  const bool isRight = path && paths::percentEncoded(*path) == parts[1].str() &&
                       dateFromIso8601(parts[2].str() + 'Z');
  return isRight ? std::optional(TrashInfo{*path, parts[2].str()}) : std::nullopt;
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
