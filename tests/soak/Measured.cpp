#include "soak/Measured.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>
#include <system_error>

namespace broomtide::soak {
namespace {

constexpr std::int64_t bytesPerBlock = 512;

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

Folder openFolder(int parent, const char* name) {
  const int opened = ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (opened < 0) return nullptr;
  Folder folder(::fdopendir(opened));
  if (!folder) ::close(opened);
  return folder;
}

void addBelow(DIR* folder, const std::string& path, Measured& sum) {
  while (const dirent* entry = ::readdir(folder)) {
    const std::string name = entry->d_name;
    if (name == "." || name == "..") continue;
    ++sum.entries;
    const std::string entryPath = path.empty() ? name : path + '/' + name;
    if (entry->d_type == DT_DIR) {
      const Folder inner = openFolder(::dirfd(folder), name.c_str());
      inner ? addBelow(inner.get(), entryPath, sum) : sum.closed.push_back(entryPath);
    } else if (entry->d_type == DT_REG) {
      struct stat status {};
      const bool isKnown =
          ::fstatat(::dirfd(folder), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
      isKnown ? void(sum.bytes += status.st_blocks * bytesPerBlock)
              : sum.closed.push_back(entryPath);
    }
  }
}

}  // namespace

Measured measure(const std::string& path) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0)
    throw std::system_error(errno, std::generic_category(), path);
  Measured result{.identity = std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino) +
                              ':' + std::to_string(status.st_mode & S_IFMT),
                  .date = Date(std::chrono::seconds(status.st_mtim.tv_sec) +
                               std::chrono::nanoseconds(status.st_mtim.tv_nsec)),
                  .closed = {}};
  if (S_ISREG(status.st_mode)) result.bytes = status.st_blocks * bytesPerBlock;
  if (!S_ISDIR(status.st_mode)) return result;
  if (const Folder folder = openFolder(AT_FDCWD, path.c_str())) addBelow(folder.get(), "", result);
  std::ranges::sort(result.closed);
  return result;
}

}  // namespace broomtide::soak
