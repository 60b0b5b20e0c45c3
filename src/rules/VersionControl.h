#pragma once

#include <array>
#include <string_view>

/// Version control systems, by what they leave in a folder that they keep.
namespace broomtide {

struct VersionControlSystem {
  std::string_view mark;   ///< the name of a folder or file at the top of a working copy
  std::string_view title;  ///< what people call it
  bool hasFolder = true;   ///< whether the mark is a folder, in which it keeps what it knows
  bool usesGit = false;    ///< a mark beside that of Git belongs to the same repository
};

/// The mark of the only one that can be asked.
inline constexpr std::string_view gitMark = ".git";

inline constexpr std::array versionControlSystems = std::to_array<VersionControlSystem>({
    {gitMark, "Git"},
    {".hg", "Mercurial"},
    {".svn", "Subversion"},
    {".jj", "Jujutsu", true, true},
    {".sl", "Sapling"},
    {"CVS", "CVS"},
    {".bzr", "Bazaar"},
    {"_darcs", "Darcs"},
    {".pijul", "Pijul"},
    {".fslckout", "Fossil", false},
    {"_FOSSIL_", "Fossil", false},
});

/// The system that has this mark, or null.
constexpr const VersionControlSystem* versionControlSystem(std::string_view name) {
  constexpr std::string_view firstLetters = "._C";
  if (name.empty() || firstLetters.find(name.front()) == name.npos) return nullptr;
  for (const VersionControlSystem& system : versionControlSystems) {
    if (system.mark == name) return &system;
  }
  return nullptr;
}

}  // namespace broomtide
