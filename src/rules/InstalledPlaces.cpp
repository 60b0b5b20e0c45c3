#include "rules/InstalledPlaces.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <climits>

#include "core/Paths.h"

namespace broomtide {
namespace {

bool isNamed(std::string_view name, std::string_view pattern) {
  if (!pattern.ends_with('*')) return name == pattern;
  pattern.remove_suffix(1);
  return name.starts_with(pattern);
}

// The first and the last bytes of the names of places, which hardly any other folder has both.
class Ends {
 public:
  Ends() {
    for (const InstalledPlace& place : installedPlaces) {
      const std::string_view name = paths::lastComponent(place.path);
      name.ends_with('*') ? of(name.front()).set() : of(name.front()).set(index(name.back()));
    }
  }

  bool have(std::string_view name) const {
    return lasts_[index(name.front())].test(index(name.back()));
  }

 private:
  static constexpr std::size_t values = UCHAR_MAX + 1;

  static std::size_t index(char byte) { return static_cast<unsigned char>(byte); }
  std::bitset<values>& of(char first) { return lasts_[index(first)]; }

  std::array<std::bitset<values>, values> lasts_;
};

bool isBase(std::string_view path, InstalledPlace::Base base, std::span<const std::string> homes) {
  using enum InstalledPlace::Base;
  switch (base) {
    case anything:
      return true;
    case home:
      return isHome(path, homes);
    case fileSystem:
      return path == "/";
  }
  return false;
}

bool isPlace(const InstalledPlace& place, std::string_view parent, std::string_view name,
             std::span<const std::string> homes) {
  std::string_view rest = place.path;
  for (;;) {
    const std::size_t slash = rest.rfind('/');
    const std::size_t start = slash == rest.npos ? 0 : slash + 1;
    if (!isNamed(name, rest.substr(start))) return false;
    if (slash == rest.npos) return isBase(parent, place.base, homes);
    rest = rest.substr(0, slash);
    name = paths::lastComponent(parent);
    parent = paths::enclosingFolder(parent);
  }
}

}  // namespace

bool isInstalledPlace(std::string_view root, std::string_view parent, std::string_view name,
                      std::span<const std::string> homes) {
  static const Ends ends;
  if (!ends.have(name)) return false;
  const std::string folder = parent.empty() ? std::string(root) : paths::appending(root, parent);
  return std::ranges::any_of(installedPlaces, [&](const InstalledPlace& place) {
    return isPlace(place, folder, name, homes);
  });
}

bool isHome(std::string_view path, std::span<const std::string> homes) {
  if (path == "/root" || std::ranges::find(homes, path) != homes.end()) return true;
  const std::string_view parent = paths::enclosingFolder(path);
  return path.size() > parent.size() + 1 && (parent == "/home" || parent == "/Users");
}

}  // namespace broomtide
