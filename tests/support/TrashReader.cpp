#include "support/TrashReader.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

#include "core/Date.h"
#include "core/Paths.h"

namespace broomtide::test {

namespace fs = std::filesystem;

std::map<std::string, std::string> trashedItems(const std::string& trash) {
  static const std::regex form("\\[Trash Info\\]\nPath=(.+)\nDeletionDate=(.+)\n");
  std::map<std::string, std::string> items;
  for (const auto& entry : fs::directory_iterator(trash + "/info")) {
    const fs::path item = fs::path(trash) / "files" / entry.path().stem();
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    std::smatch parts;
    const bool isRight = entry.path().extension() == ".trashinfo" && exists(symlink_status(item)) &&
                         std::regex_match(text, parts, form) && dateFromIso8601(parts.str(2) + 'Z');
    const auto place = isRight ? paths::percentDecoded(parts.str(1)) : std::nullopt;
    if (!place || paths::percentEncoded(*place) != parts.str(1)) {
      throw std::runtime_error("tells of no item: " + entry.path().native());
    }
    items[*place] = item;
  }
  const auto files = std::distance(fs::directory_iterator(trash + "/files"), {});
  if (static_cast<std::size_t>(files) != items.size()) {
    throw std::runtime_error("an item has no information");
  }
  return items;
}

}  // namespace broomtide::test
