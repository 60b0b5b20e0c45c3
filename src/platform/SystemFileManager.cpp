#include "platform/FileManager.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <limits>
#include <string>
#include <system_error>
#include <utility>

namespace broomtide {
namespace {

std::error_code lastError() { return {errno, std::generic_category()}; }

// What Broomtide creates is open to its user alone, and whole: the umask of the process, which can
// only take permissions away, has no say. It is left as it is, because it belongs to all threads
// and to the programs that they start. On a file system that has no permissions the item keeps
// those that it shows. What the user could not use gives an error, and is removed again.
constexpr mode_t filePermissions = 0600;
constexpr mode_t folderPermissions = 0700;
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr mode_t specialBits = S_ISUID | S_ISGID | S_ISVTX;

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

// For an open file that was just created.
std::error_code givePermissionsToFile(int file) { return give(file, filePermissions, ::fchmod); }

// For a folder that was just created with this name in an open folder. Should the name lead to
// another item by now, that one is left alone unless it is a folder of this user.
std::error_code givePermissionsToFolder(int folder, const char* name) {
  // One that its user may not read can still be opened in this way.
  const FileDescriptor created(
      ::openat(folder, name, O_PATH | O_NOFOLLOW | O_DIRECTORY | O_CLOEXEC));
  if (!created.isOpen()) return lastError();
  return give(created.get(), folderPermissions, changeThroughDescriptor);
}

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t blockSize = 512;

std::error_code outcome(int result) { return result < 0 ? lastError() : std::error_code(); }

std::error_code keep(int descriptor, FileDescriptor& opened) {
  if (descriptor < 0) return lastError();
  opened = FileDescriptor(descriptor);
  return {};
}

// Dates beyond what nanoseconds in 64 bits can hold become the nearest one that fits.
Date toDate(const statx_timestamp& time) {
  constexpr std::int64_t largest =
      std::numeric_limits<std::int64_t>::max() / nanosecondsPerSecond - 1;
  if (time.tv_sec > largest) return Date::max();
  if (time.tv_sec < -largest) return Date::min();
  return Date(std::chrono::nanoseconds(time.tv_sec * nanosecondsPerSecond + time.tv_nsec));
}

class SystemFileManager final : public FileManager {
 public:
  std::error_code openFolder(int folder, const char* name, LinkPolicy links,
                             FileDescriptor& opened) override {
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    int descriptor = -1;
    if (links == LinkPolicy::refuse) {
      open_how how{};
      how.flags = flags;
      how.resolve = RESOLVE_NO_SYMLINKS;
      descriptor = static_cast<int>(::syscall(SYS_openat2, folder, name, &how, sizeof how));
    } else {
      const int follow = links == LinkPolicy::follow ? 0 : O_NOFOLLOW;
      descriptor = ::openat(folder, name, flags | follow);
    }
    return keep(descriptor, opened);
  }

  std::error_code readFolder(int folder, std::span<std::byte> buffer,
                             std::size_t& filled) override {
    const ssize_t count = ::getdents64(folder, buffer.data(), buffer.size());
    if (count < 0) return lastError();
    filled = static_cast<std::size_t>(count);
    return {};
  }

  std::error_code readAttributes(int folder, const char* name, LinkPolicy links,
                                 FileAttributes& attributes) override {
    const int follow = links == LinkPolicy::follow ? 0 : AT_SYMLINK_NOFOLLOW;
    const int empty = name[0] == '\0' ? AT_EMPTY_PATH : 0;
    constexpr unsigned wanted = STATX_TYPE | STATX_MODE | STATX_UID | STATX_INO | STATX_MTIME |
                                STATX_BLOCKS | STATX_SIZE | STATX_MNT_ID;
    struct statx status;
    if (::statx(folder, name, follow | empty | AT_NO_AUTOMOUNT, wanted, &status) != 0) {
      return lastError();
    }
    attributes.device = makedev(status.stx_dev_major, status.stx_dev_minor);
    attributes.inode = status.stx_ino;
    attributes.mount = (status.stx_mask & STATX_MNT_ID) != 0 ? status.stx_mnt_id : 0;
    attributes.typeBits = status.stx_mode & S_IFMT;
    attributes.permissions = status.stx_mode & ~static_cast<std::uint32_t>(S_IFMT);
    attributes.owner = status.stx_uid;
    attributes.allocatedBytes = (status.stx_mask & STATX_BLOCKS) != 0
                                    ? static_cast<std::int64_t>(status.stx_blocks) * blockSize
                                    : static_cast<std::int64_t>(status.stx_size);
    attributes.modificationDate.reset();
    if ((status.stx_mask & STATX_MTIME) != 0)
      attributes.modificationDate = toDate(status.stx_mtime);
    return {};
  }

  bool isReadable(const std::string& path) override {
    return ::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) == 0;
  }

  bool isExecutableFile(const std::string& path) override {
    FileAttributes attributes;
    return !readAttributes(AT_FDCWD, path.c_str(), LinkPolicy::follow, attributes) &&
           attributes.isRegularFile() && ::faccessat(AT_FDCWD, path.c_str(), X_OK, AT_EACCESS) == 0;
  }

  std::error_code openFile(int folder, const char* name, LinkPolicy links,
                           FileDescriptor& opened) override {
    const int follow = links == LinkPolicy::follow ? 0 : O_NOFOLLOW;
    return keep(::openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | follow),
                opened);
  }

  std::error_code readFile(int file, std::span<char> buffer, std::size_t& filled) override {
    const ssize_t count = ::read(file, buffer.data(), buffer.size());
    if (count < 0) return lastError();
    filled = static_cast<std::size_t>(count);
    return {};
  }

  std::error_code createFile(int folder, const char* name, FileDescriptor& opened) override {
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    FileDescriptor file(::openat(folder, name, flags, filePermissions));
    if (!file.isOpen()) return lastError();
    const std::error_code error = givePermissionsToFile(file.get());
    if (error) ::unlinkat(folder, name, 0);
    if (!error) opened = std::move(file);
    return error;
  }

  std::error_code writeFile(int file, std::string_view bytes, std::size_t& written) override {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count < 0) return lastError();
    written = static_cast<std::size_t>(count);
    return {};
  }

  std::error_code synchronize(int descriptor) override { return outcome(::fsync(descriptor)); }

  std::error_code removeFile(int folder, const char* name) override {
    return outcome(::unlinkat(folder, name, 0));
  }

  std::error_code createFolder(int folder, const char* name) override {
    if (::mkdirat(folder, name, folderPermissions) != 0) return lastError();
    const std::error_code error = givePermissionsToFolder(folder, name);
    // Whoever has put another empty folder in its place could have removed that one as well.
    if (error) ::unlinkat(folder, name, AT_REMOVEDIR);
    return error;
  }

  std::error_code removeFolder(int folder, const char* name) override {
    return outcome(::unlinkat(folder, name, AT_REMOVEDIR));
  }

  std::error_code rename(int folder, const char* name, int newFolder, const char* newName,
                         IfExists ifExists) override {
    const unsigned flags = ifExists == IfExists::fail ? RENAME_NOREPLACE : 0;
    return outcome(::renameat2(folder, name, newFolder, newName, flags));
  }

  std::error_code tryLock(int folder) override {
    return outcome(::flock(folder, LOCK_EX | LOCK_NB));
  }
};

}  // namespace

const int workingDirectory = AT_FDCWD;

std::uint32_t currentUser() { return ::getuid(); }

FileManager& systemFileManager() {
  static SystemFileManager manager;
  return manager;
}

void ignoreFileSizeSignal() { std::signal(SIGXFSZ, SIG_IGN); }

}  // namespace broomtide
