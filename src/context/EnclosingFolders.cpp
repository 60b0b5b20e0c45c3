#include "context/EnclosingFolders.h"

#include <utility>

namespace broomtide {

void EnclosingFolders::add(std::string folder, std::size_t number) {
  lengths_.insert(folder.size());
  numbers_.emplace(std::move(folder), number);
}

std::optional<std::size_t> EnclosingFolders::nearest(std::string_view path) const {
  for (auto length = lengths_.lower_bound(path.size()); length != lengths_.end(); ++length) {
    const bool endsComponent = *length == path.size() || path[*length] == '/';
    if (!endsComponent) continue;
    const auto found = numbers_.find(path.substr(0, *length));
    if (found != numbers_.end()) return found->second;
  }
  return std::nullopt;
}

}  // namespace broomtide
