#include "platform/FileManager.h"

#include <sys/stat.h>

#include <algorithm>
#include <climits>
#include <utility>

namespace broomtide {
namespace {

std::size_t endOfName(std::string_view path, std::size_t start) {
  return std::min(path.find('/', start), path.size());
}

// As many components from `start` on as one system call takes.
std::size_t endOfPiece(std::string_view path, std::size_t start) {
  constexpr std::size_t longest = PATH_MAX - 1;
  if (path.size() - start <= longest) return path.size();
  const std::size_t slash = path.rfind('/', start + longest);
  return slash > start && slash != std::string_view::npos ? slash : endOfName(path, start);
}

}  // namespace

bool FileAttributes::isChangeableByOthers() const {
  return (permissions & (S_IWGRP | S_IWOTH)) != 0;
}

bool FileAttributes::isAccessibleToOthers() const {
  return (permissions & (S_IRWXG | S_IRWXO)) != 0;
}

bool FileAttributes::isSticky() const { return (permissions & S_ISVTX) != 0; }

bool FileAttributes::isFolder() const { return typeBits == S_IFDIR; }
bool FileAttributes::isRegularFile() const { return typeBits == S_IFREG; }
bool FileAttributes::isLink() const { return typeBits == S_IFLNK; }

bool isNoFolderAnyMore(std::error_code error) {
  return error == std::errc::not_a_directory || error == std::errc::too_many_symbolic_link_levels;
}

std::error_code openFolderBelow(FileManager& fileManager, int folder, std::string_view path,
                                FileDescriptor& opened) {
  bool takesPaths = true;
  FileDescriptor current;
  for (std::size_t start = 0; start < path.size();) {
    const std::size_t end = takesPaths ? endOfPiece(path, start) : endOfName(path, start);
    const std::string piece(path.substr(start, end - start));
    const int parent = current.isOpen() ? current.get() : folder;
    FileDescriptor next;
    const std::error_code error = fileManager.openFolder(
        parent, piece.c_str(), takesPaths ? LinkPolicy::refuse : LinkPolicy::doNotFollow, next);
    // What a system before Linux 5.6 says, and a sandbox that does not know the call.
    const bool isUnknown =
        error == std::errc::function_not_supported || error == std::errc::operation_not_permitted;
    if (takesPaths && isUnknown) {
      takesPaths = false;
      continue;
    }
    if (error) return error;
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
