#include "trash/Trash.h"

#include <algorithm>
#include <vector>

#include "core/Paths.h"
#include "platform/MountTable.h"
#include "platform/PathSafety.h"
#include "platform/WholeFile.h"
#include "trash/TrashFormat.h"

namespace broomtide {
namespace {

// A mount, and how many folders a folder lies below its top.
struct MountTop {
  FileDescriptor folder;
  int depth = 0;
};

bool isSameMount(const FileAttributes& left, const FileAttributes& right) {
  return left.device == right.device && left.mount == right.mount;
}

// Climbs from an open folder as long as the folder above belongs to the same mount.
std::error_code findTop(FileManager& fileManager, int folder, FileAttributes attributes,
                        MountTop& top) {
  if (const std::error_code error =
          fileManager.openFolder(folder, ".", LinkPolicy::doNotFollow, top.folder)) {
    return error;
  }
  for (top.depth = 0;; ++top.depth) {
    FileDescriptor above;
    if (const std::error_code error =
            fileManager.openFolder(top.folder.get(), "..", LinkPolicy::doNotFollow, above)) {
      return error;
    }
    FileAttributes aboveAttributes;
    if (const std::error_code error =
            fileManager.readAttributes(above.get(), "", LinkPolicy::doNotFollow, aboveAttributes)) {
      return error;
    }
    if (!isSameMount(attributes, aboveAttributes)) {
      // A part of a mount with a device number of its own cannot be renamed out of, and nobody
      // would look for a Trash at its top.
      const bool isPart = attributes.mount != 0 && attributes.mount == aboveAttributes.mount;
      return isPart ? std::make_error_code(std::errc::cross_device_link) : std::error_code();
    }
    const bool isRoot = aboveAttributes.inode == attributes.inode;
    if (isRoot) return {};
    top.folder = std::move(above);
    attributes = aboveAttributes;
  }
}

std::string climbed(std::string path, int depth) {
  for (; depth > 0; --depth) path = std::string(paths::enclosingFolder(path));
  return path;
}

}  // namespace

std::error_code Trash::move(const TrashItem& item) {
  const std::string path = paths::appending(item.folder, item.name);
  if (known_.hold(fileManager_, path))
    return std::make_error_code(std::errc::operation_not_permitted);
  FileDescriptor folder;
  if (const std::error_code error = fileManager_.openFolder(workingDirectory, item.folder.c_str(),
                                                            LinkPolicy::refuse, folder)) {
    return error;
  }
  FileAttributes attributes;
  if (const std::error_code error = fileManager_.readAttributes(
          folder.get(), item.name.c_str(), LinkPolicy::doNotFollow, attributes)) {
    return error;
  }
  if (FileIdentity::token(attributes) != item.identity) {
    return std::make_error_code(std::errc::operation_canceled);
  }
  FileAttributes folderAttributes;
  if (const std::error_code error = fileManager_.readAttributes(
          folder.get(), "", LinkPolicy::doNotFollow, folderAttributes)) {
    return error;
  }
  std::unique_ptr<Place>& place = places_[{folderAttributes.device, folderAttributes.mount}];
  if (place == nullptr) {
    auto opened = std::make_unique<Place>(fileManager_);
    if (const auto error = open(folder.get(), item.folder, folderAttributes, *opened)) return error;
    place = std::move(opened);
  }
  if (attributes.isFolder()) {
    if (const std::error_code error = refuseMountsBelow(path)) return error;
  }
  return place->folder.take(folder.get(), item, recordedPath(path, place->top));
}

// Read for every folder anew, because something may be mounted while others move.
std::error_code Trash::refuseMountsBelow(const std::string& path) {
  std::vector<MountTable::Mount> mounts;
  if (const std::error_code error = MountTable::read(fileManager_, mounts)) return error;
  const bool isMounted = std::ranges::any_of(mounts, [&path](const MountTable::Mount& mount) {
    return paths::isBelow(mount.point, path);
  });
  return isMounted ? std::make_error_code(std::errc::device_or_resource_busy) : std::error_code();
}

void Trash::recordSizes() {
  for (const auto& [mount, place] : places_) {
    if (place != nullptr) place->folder.recordSizes();
  }
}

// Opens the Trash for what lies in the open folder at `path`.
std::error_code Trash::open(int folder, const std::string& path, const FileAttributes& attributes,
                            Place& place) {
  bool isHome = false;
  if (const auto error = compareWithHome(attributes, isHome)) return error;
  if (isHome) return openHome(place);
  MountTop top;
  if (const auto error = findTop(fileManager_, folder, attributes, top)) return error;
  place.top = climbed(path, top.depth);
  return openAtTop(std::move(top.folder), place);
}

// Whether a folder lies on the mount of the user's own Trash, judged by the nearest folder that
// exists, so that no Trash is made that is not used. Not knowing it must not lead to another Trash.
std::error_code Trash::compareWithHome(const FileAttributes& attributes, bool& isSame) {
  isSame = false;
  if (!home_) return {};
  for (std::string folder = *home_;; folder = std::string(paths::enclosingFolder(folder))) {
    FileAttributes found;
    const std::error_code error =
        fileManager_.readAttributes(workingDirectory, folder.c_str(), LinkPolicy::follow, found);
    isSame = !error && isSameMount(attributes, found);
    if (error != std::errc::no_such_file_or_directory || folder == "/") return error;
  }
}

std::error_code Trash::openHome(Place& place) {
  FileDescriptor above;
  if (const auto error = WholeFile::openOrCreateFolder(
          fileManager_, std::string(paths::enclosingFolder(*home_)), above)) {
    return error;
  }
  return place.folder.open(std::move(above), std::string(paths::lastComponent(*home_)),
                           TrashSharing::allowed);
}

std::error_code Trash::openAtTop(FileDescriptor top, Place& place) {
  if (!openShared(top.get(), place)) return {};
  return place.folder.open(std::move(top), ".Trash-" + std::to_string(currentUser()),
                           TrashSharing::refused);
}

// The one that an administrator has made for all users. Without the sticky bit, any of them could
// take away what the others have in it.
std::error_code Trash::openShared(int top, Place& place) {
  FileDescriptor shared;
  if (const std::error_code error =
          fileManager_.openFolder(top, ".Trash", LinkPolicy::doNotFollow, shared)) {
    return error;
  }
  FileAttributes attributes;
  if (const std::error_code error =
          fileManager_.readAttributes(shared.get(), "", LinkPolicy::doNotFollow, attributes)) {
    return error;
  }
  if (!attributes.isSticky()) return std::make_error_code(std::errc::permission_denied);
  return place.folder.open(std::move(shared), std::to_string(currentUser()), TrashSharing::refused);
}

}  // namespace broomtide
