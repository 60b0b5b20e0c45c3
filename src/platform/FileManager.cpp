#include "platform/FileManager.h"

#include <sys/stat.h>

#include <algorithm>
#include <utility>

namespace broomtide {

bool FileAttributes::isFolder() const { return typeBits == S_IFDIR; }
bool FileAttributes::isRegularFile() const { return typeBits == S_IFREG; }
bool FileAttributes::isLink() const { return typeBits == S_IFLNK; }

bool isNoFolderAnyMore(std::error_code error) {
  return error == std::errc::not_a_directory || error == std::errc::too_many_symbolic_link_levels;
}

std::error_code openFolderBelow(FileManager& fileManager, int folder, std::string_view path,
                                FileDescriptor& opened) {
  const std::error_code error =
      fileManager.openFolder(folder, std::string(path).c_str(), LinkPolicy::refuse, opened);
  const bool isBeyondOneCall =
      error == std::errc::filename_too_long || error == std::errc::function_not_supported;
  if (!isBeyondOneCall) return error;

  FileDescriptor current;
  for (std::size_t start = 0; start < path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    const std::string name(path.substr(start, end - start));
    FileDescriptor next;
    const int parent = current.isOpen() ? current.get() : folder;
    const std::error_code failure =
        fileManager.openFolder(parent, name.c_str(), LinkPolicy::doNotFollow, next);
    if (failure) return failure;
    current = std::move(next);
    start = end + 1;
  }
  opened = std::move(current);
  return {};
}

std::error_code readAttributesBelow(FileManager& fileManager, int folder, std::string_view path,
                                    FileAttributes& attributes) {
  const std::size_t slash = path.rfind('/');
  const std::string name(path.substr(slash + 1));  // the whole path when there is no slash
  FileDescriptor parent;
  if (slash != std::string_view::npos) {
    const std::error_code error =
        openFolderBelow(fileManager, folder, path.substr(0, slash), parent);
    if (error) return error;
  }
  return fileManager.readAttributes(parent.isOpen() ? parent.get() : folder, name.c_str(),
                                    LinkPolicy::doNotFollow, attributes);
}

}  // namespace broomtide
