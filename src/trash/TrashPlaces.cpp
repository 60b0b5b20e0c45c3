#include "trash/TrashPlaces.h"

#include "core/Paths.h"
#include "platform/PathSafety.h"
#include "trash/TrashFormat.h"

namespace broomtide {
namespace {

// Whether a folder has a subfolder of this name, also when that cannot be found out.
bool hasPart(FileManager& fileManager, std::string_view folder, const char* name) {
  FileAttributes attributes;
  const std::error_code error =
      fileManager.readAttributes(workingDirectory, paths::appending(folder, name).c_str(),
                                 LinkPolicy::doNotFollow, attributes);
  return error ? error != std::errc::no_such_file_or_directory : attributes.isFolder();
}

}  // namespace

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

bool TrashPlaces::hold(FileManager& fileManager, std::string_view path) const {
  if (home_ && paths::isBelow(path, *home_)) return true;
  for (std::string_view folder = paths::enclosingFolder(path); folder.size() > 1;
       folder = paths::enclosingFolder(folder)) {
    const std::string_view name = paths::lastComponent(folder);
    if (isTrashOfMount(name)) return true;
    if (name == trashOfHome && hasPart(fileManager, folder, trashFiles) &&
        hasPart(fileManager, folder, trashInformation)) {
      return true;
    }
  }
  return false;
}

}  // namespace broomtide
