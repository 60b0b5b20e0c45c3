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

GitItemStatus statusAmong(const std::string* root, const std::vector<std::string>& others,
                          const std::function<GitItemStatus(const std::string& root)>& statusIn) {
  GitItemStatus status = root != nullptr ? statusIn(*root) : GitItemStatus::unavailable;
  if (others.size() > mostOtherRepositories && status != GitItemStatus::tracked) {
    return GitItemStatus::unavailable;
  }
  for (const std::string& other : others) {
    if (status == GitItemStatus::tracked) break;
    const GitItemStatus said = statusIn(other);
    const bool isUnknown =
        said == GitItemStatus::unavailable && root != nullptr && paths::isBelow(other, *root);
    if (said == GitItemStatus::tracked || isUnknown) status = said;
  }
  return status;
}

}  // namespace broomtide
