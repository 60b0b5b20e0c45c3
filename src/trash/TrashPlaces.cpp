#include "trash/TrashPlaces.h"

#include "core/Paths.h"
#include "platform/PathSafety.h"
#include "trash/TrashFormat.h"

namespace broomtide {

TrashPlaces::TrashPlaces(const std::optional<std::string>& home) {
  if (home) home_ = PathSafety::resolved(*home);
}

bool TrashPlaces::isTrash(std::string_view root, std::string_view parent,
                          std::string_view name) const {
  if (isTrashOfMount(name)) return true;
  if (!home_ || name != paths::lastComponent(*home_)) return false;
  const std::string folder = parent.empty() ? std::string(root) : paths::appending(root, parent);
  return paths::appending(folder, name) == *home_;
}

bool TrashPlaces::hold(std::string_view path) const {
  if (home_ && paths::isBelow(path, *home_)) return true;
  for (std::string_view folder = paths::enclosingFolder(path); folder.size() > 1;
       folder = paths::enclosingFolder(folder)) {
    if (isTrashOfMount(paths::lastComponent(folder))) return true;
  }
  return false;
}

}  // namespace broomtide
