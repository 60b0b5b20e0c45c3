#include "context/FolderMarks.h"

#include <algorithm>
#include <array>

#include "core/Paths.h"
#include "rules/InstalledPlaces.h"

namespace broomtide {
namespace {

struct Named {
  std::string_view name;
  FolderMarks::Mark mark;
  bool isFolder = false;
};

// The lengths decide nearly all comparisons.
constexpr bool comesBefore(std::string_view left, std::string_view right) {
  return left.size() != right.size() ? left.size() < right.size() : left < right;
}

constexpr std::array table = [] {
  using enum FolderMarks::Mark;
  return std::to_array<Named>({
      {"HEAD", gitHead},
      {"refs", gitReferences, true},
      {"objects", gitObjects, true},
      {"resources", resources, true},
      {condaMark, conda, true},
      {environmentMark, pythonEnvironment},
      {"CACHEDIR.TAG", cacheTag},
      {"package.json", package},
      {"meson-private", meson, true},
      {"CMakeCache.txt", cmakeCache},
      {electronMarks[0], electron},
      {".rustc_info.json", cargo},
      {electronMarks[1], electron},
  });
}();
static_assert(std::ranges::is_sorted(table, comesBefore, &Named::name));

}  // namespace

FolderMarks FolderMarks::of(FileManager& fileManager, int folder, const std::string& name) {
  FolderMarks marks;
  for (const Named& mark : table) {
    FileAttributes attributes;
    const std::string path = paths::appending(name, mark.name);
    if (fileManager.readAttributes(folder, path.c_str(), LinkPolicy::doNotFollow, attributes)) {
      continue;
    }
    marks.add(mark.name, attributes.isFolder() ? EntryType::folder : EntryType::file);
  }
  return marks;
}

void FolderMarks::add(std::string_view name, EntryType type) {
  const auto found = std::ranges::lower_bound(table, name, comesBefore, &Named::name);
  if (found == table.end() || found->name != name) return;
  if ((type == EntryType::folder) == found->isFolder) marks_ |= found->mark;
}

}  // namespace broomtide
