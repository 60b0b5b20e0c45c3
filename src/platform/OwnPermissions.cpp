#include "platform/OwnPermissions.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/FileDescriptor.h"

namespace broomtide::OwnPermissions {
namespace {

constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t specialBits = S_ISUID | S_ISGID | S_ISVTX;

std::error_code lastError() { return {errno, std::generic_category()}; }

// A descriptor that only names a folder gives no other way. It leads to the folder that was looked
// at, whatever has its name by now.
int changeThroughDescriptor(int folder, mode_t mode) {
  return ::chmod(("/proc/self/fd/" + std::to_string(folder)).c_str(), mode);
}

// Permissions that are too many after all come from a file system without any, which has none to
// give or to take.
std::error_code give(int created, mode_t wanted, int (*change)(int, mode_t)) {
  struct stat status;
  if (::fstat(created, &status) != 0) return lastError();
  if ((status.st_mode & permissionBits) == wanted) return {};
  errno = EPERM;
  const bool isOwn = status.st_uid == ::geteuid();
  if (isOwn && change(created, (status.st_mode & specialBits) | wanted) == 0) return {};
  const bool isUsable = (status.st_mode & wanted) == wanted;
  return isUsable ? std::error_code() : lastError();
}

}  // namespace

std::error_code giveToFile(int file) { return give(file, forFiles, ::fchmod); }

std::error_code giveToFolder(int folder, const char* name) {
  // One that its user may not read can still be opened in this way.
  const FileDescriptor created(
      ::openat(folder, name, O_PATH | O_NOFOLLOW | O_DIRECTORY | O_CLOEXEC));
  if (!created.isOpen()) return lastError();
  return give(created.get(), forFolders, changeThroughDescriptor);
}

}  // namespace broomtide::OwnPermissions
