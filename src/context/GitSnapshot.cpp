#include "context/GitSnapshot.h"

#include <algorithm>
#include <utility>

#include "core/Paths.h"

namespace broomtide {
namespace {

constexpr std::string_view nameAround = "/..";  // no root that is found ends like this

}  // namespace

PathSet::PathSet(std::string zeroTerminatedPaths) : block_(std::move(zeroTerminatedPaths)) {
  paths_.reserve(static_cast<std::size_t>(std::count(block_.begin(), block_.end(), '\0')));
  for (std::size_t start = 0; start < block_.size();) {
    const std::size_t end = std::min(block_.find('\0', start), block_.size());
    std::size_t first = start;
    std::size_t last = end;
    while (first < last && block_[first] == '/') ++first;
    while (first < last && block_[last - 1] == '/') --last;
    if (first < last) {
      paths_.push_back(
          {static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(last - first)});
    }
    start = end + 1;
  }
  const auto byText = [this](Slice slice) { return text(slice); };
  if (!std::ranges::is_sorted(paths_, {}, byText)) std::ranges::sort(paths_, {}, byText);
}

bool PathSet::contains(std::string_view path) const {
  return std::ranges::binary_search(paths_, path, {}, [this](Slice slice) { return text(slice); });
}

bool PathSet::containsBelow(std::string_view folder) const {
  const std::string first = std::string(folder) + '/';
  const auto found = std::ranges::lower_bound(paths_, std::string_view(first), {},
                                              [this](Slice slice) { return text(slice); });
  return found != paths_.end() && text(*found).starts_with(first);
}

bool PathSet::covers(std::string_view path) const {
  if (contains(path)) return true;
  for (std::size_t slash = path.find('/'); slash != std::string_view::npos;
       slash = path.find('/', slash + 1)) {
    if (contains(path.substr(0, slash))) return true;
  }
  return false;
}

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

std::string rootsAround(const std::string& folder) { return folder + std::string(nameAround); }

std::optional<std::string> folderOfRootsAround(const std::string& root) {
  if (!root.ends_with(nameAround)) return std::nullopt;
  return root.substr(0, root.size() - nameAround.size());
}

GitJudgement statusAmong(const std::string* root, const std::vector<std::string>& others,
                         const std::function<GitItemStatus(const std::string& root)>& statusIn) {
  using enum GitItemStatus;
  GitJudgement judged{.status = root != nullptr ? statusIn(*root) : unavailable,
                      .hasRepository = root != nullptr};
  if (others.size() > maxOtherRepositories && judged.status != tracked) {
    return {.status = unavailable, .hasRepository = true};
  }
  const auto liesBetween = [root](const std::string& other) {
    return paths::isBelow(paths::standardized(other), paths::standardized(*root));
  };
  for (const std::string& other : others) {
    if (judged.status == tracked) break;
    const GitItemStatus said = statusIn(other);
    if (said == tracked || said == unavailable) {
      judged = {.status = said, .hasRepository = true};
    } else if (said == untracked && judged.status == ignored && liesBetween(other)) {
      judged.status = untracked;
    }
  }
  return judged;
}

}  // namespace broomtide
