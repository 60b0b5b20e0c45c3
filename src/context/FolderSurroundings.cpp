#include "context/FolderSurroundings.h"

#include <string_view>

#include "context/BuildProof.h"
#include "context/FolderMarks.h"
#include "core/Paths.h"
#include "rules/InstalledPlaces.h"
#include "rules/VersionControl.h"

namespace broomtide {
namespace {

bool isThere(FileManager& fileManager, const std::string& folder, std::string_view name) {
  FileAttributes attributes;
  return !fileManager.readAttributes(workingDirectory, paths::appending(folder, name).c_str(),
                                     LinkPolicy::doNotFollow, attributes);
}

// One that keeps the folder, but for Git.
const VersionControlSystem* systemOf(FileManager& fileManager, const std::string& folder) {
  const bool hasGit = isThere(fileManager, folder, gitMark);
  for (const VersionControlSystem& system : versionControlSystems) {
    const bool isOfGit = system.mark == gitMark || (system.usesGit && hasGit);
    if (!isOfGit && isThere(fileManager, folder, system.mark)) return &system;
  }
  return nullptr;
}

bool isExtension(FileManager& fileManager, const std::string& folder, const FolderMarks& marks) {
  FileDescriptor opened;
  return marks.mayBeExtension(paths::lastComponent(paths::enclosingFolder(folder))) &&
         !fileManager.openFolder(workingDirectory, folder.c_str(), LinkPolicy::follow, opened) &&
         isEditorExtension(fileManager, opened.get());
}

bool isStore(std::string_view name, const FolderMarks& marks) {
  const VersionControlSystem* system = versionControlSystem(name);
  return marks.isGitStore() || (system != nullptr && system->hasFolder);
}

}  // namespace

std::optional<std::vector<Message>> cautionsIn(FileManager& fileManager, const std::string& folder,
                                               std::span<const std::string> homes) {
  std::vector<Message> reasons;
  for (std::string here = folder; here != "/";) {
    const std::string_view name = paths::lastComponent(here);
    const std::string parent(paths::enclosingFolder(here));
    const FolderMarks marks = FolderMarks::of(fileManager, workingDirectory, here);
    if (isStore(name, marks)) return std::nullopt;
    if (isInstalledPlace(parent, {}, name, homes) || marks.isInstalled(false) ||
        isExtension(fileManager, here, marks)) {
      reasons.push_back(naming(messages::insideInstalled, here));
    } else if (isHiddenInHome(parent, name, homes)) {
      reasons.push_back(naming(messages::insideHiddenFolder, here));
    }
    const VersionControlSystem* system = here == folder ? nullptr : systemOf(fileManager, here);
    if (system != nullptr) {
      reasons.push_back({.pattern = messages::underVersionControl,
                         .values = {nameValue(std::string(system->title)), nameValue(here)}});
    }
    here = parent;
  }
  return reasons;
}

bool isHiddenInHome(std::string_view parent, std::string_view name,
                    std::span<const std::string> homes) {
  return name.starts_with('.') && isHome(parent, homes);
}

}  // namespace broomtide
