#include "context/GitSnapshot.h"

#include "core/Paths.h"

namespace broomtide {

GitItemStatus GitSnapshot::status(std::string_view location, bool isDirectory) const {
  if (!isAvailable) return GitItemStatus::unavailable;
  const std::string item = paths::standardized(location);
  const std::string folder = paths::standardized(root);
  if (item == folder) return GitItemStatus::untracked;
  if (!paths::isBelow(item, folder)) return GitItemStatus::unavailable;

  const std::string_view path = std::string_view(item).substr(folder.size() + 1);
  if (trackedPaths.contains(path)) return GitItemStatus::tracked;
  if (isDirectory && trackedPaths.containsBelow(path)) return GitItemStatus::tracked;
  return ignoredPaths.covers(path) ? GitItemStatus::ignored : GitItemStatus::untracked;
}

}  // namespace broomtide
