#pragma once

/// The limit on the size of files under which the process may have been started (`ulimit -f`).

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "core/Date.h"

namespace broomtide {

/// Owns one open file descriptor and closes it.
class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  FileDescriptor(FileDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
      reset();
      descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
  }
  ~FileDescriptor() { reset(); }

  int get() const { return descriptor_; }
  bool isOpen() const { return descriptor_ >= 0; }

  void reset() {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
  }

 private:
  int descriptor_ = -1;
};

/// What the file system says of one item.
struct FileAttributes {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t mount = 0;     ///< which mount the item was reached through; 0 before Linux 5.8
  std::uint32_t typeBits = 0;  ///< the mode, masked with the file-type mask
  std::uint32_t permissions =
      0;                    ///< the mode without the type: nine bits and the three special ones
  std::uint32_t owner = 0;  ///< a user id
  std::int64_t allocatedBytes = 0;  ///< blocks in use, else the logical size
  std::optional<Date> modificationDate;

  /// Whether others than the owner may change what is in a folder, and whether they may do anything
  /// at all with an item, by its permissions.
  bool isChangeableByOthers() const;
  bool isAccessibleToOthers() const;

  /// Whether only the owner of an entry can take it out of this folder.
  bool isSticky() const;

  bool isFolder() const;
  bool isRegularFile() const;
  bool isLink() const;
};

/// What happens to symlinks in a path.
enum class LinkPolicy {
  follow,
  doNotFollow,  ///< the last component is taken as it is, symlinks before it are followed
  refuse,       ///< no component may be a symlink; only for opening
};

/// What happens to an item that already has the name to which another one is renamed.
enum class IfExists {
  fail,     ///< it stays, and the operation fails with file_exists
  replace,  ///< a file is replaced, with no moment without either
};

/// Whether opening a folder failed because it has turned into something else, such as a symlink.
bool isNoFolderAnyMore(std::error_code error);

/// Stands for the process's working directory, so that a name may be an absolute path.
extern const int workingDirectory;

/// The file system, one system call an operation, so that tests can make any single call fail.
/// Names are relative to an open folder, which keeps a walk inside the folder it began in.
/// Every operation may be called from any thread. What is created is open to this user alone,
/// whatever the umask, and is gone again when it cannot be.
class FileManager {
 public:
  virtual ~FileManager() = default;

  /// Opens a folder for reading and for use as `folder` in the other operations.
  virtual std::error_code openFolder(int folder, const char* name, LinkPolicy links,
                                     FileDescriptor& opened) = 0;

  /// Reads the next entries of an open folder as the kernel's `linux_dirent64` records. `filled`
  /// is the number of bytes read, 0 after the last entry.
  virtual std::error_code readFolder(int folder, std::span<std::byte> buffer,
                                     std::size_t& filled) = 0;

  /// Reads the attributes of an entry; an empty name means the open folder itself.
  virtual std::error_code readAttributes(int folder, const char* name, LinkPolicy links,
                                         FileAttributes& attributes) = 0;

  /// Whether this process may read the item at an absolute path, symlinks followed.
  virtual bool isReadable(const std::string& path) = 0;

  /// Whether a regular file that this process may execute is at an absolute path, symlinks
  /// followed.
  virtual bool isExecutableFile(const std::string& path) = 0;

  /// Opens what is not a folder for reading, without waiting for the writer of a pipe.
  virtual std::error_code openFile(int folder, const char* name, LinkPolicy links,
                                   FileDescriptor& opened) = 0;

  /// Reads on in an open file. `filled` is the number of bytes read, 0 at the end.
  virtual std::error_code readFile(int file, std::span<char> buffer, std::size_t& filled) = 0;

  /// Creates an empty file and opens it for writing; fails with file_exists when the name is taken.
  virtual std::error_code createFile(int folder, const char* name, FileDescriptor& opened) = 0;

  /// Writes on in an open file, `written` bytes of those given.
  virtual std::error_code writeFile(int file, std::string_view bytes, std::size_t& written) = 0;

  /// Waits until an open file or folder has reached the disk.
  virtual std::error_code synchronize(int descriptor) = 0;

  /// Removes a name of a file, never of a folder. Only for files that Broomtide itself wrote.
  virtual std::error_code removeFile(int folder, const char* name) = 0;

  /// Creates an empty folder; fails with file_exists when the name is taken.
  virtual std::error_code createFolder(int folder, const char* name) = 0;

  /// Removes an empty folder; anything else stays. Only for those that Broomtide itself created.
  virtual std::error_code removeFolder(int folder, const char* name) = 0;

  /// Renames an item atomically, in the same or into another folder of the same mount.
  virtual std::error_code rename(int folder, const char* name, int newFolder, const char* newName,
                                 IfExists ifExists) = 0;

  /// Takes the advisory lock of an open folder, which is given back when the descriptor is closed.
  /// Fails with operation_would_block when somebody else holds it.
  virtual std::error_code tryLock(int folder) = 0;
};

/// Opens the folder at `path`, which leads there from an open folder and may be of any length. A
/// symlink, or anything else that is no folder, on the way or at the end gives an error that
/// isNoFolderAnyMore() recognises. `opened` is left alone on failure.
std::error_code openFolderBelow(FileManager& fileManager, int folder, std::string_view path,
                                FileDescriptor& opened);

/// Reads the attributes of the item at such a path, whose last component may be a symlink: then
/// those of the symlink itself.
std::error_code readAttributesBelow(FileManager& fileManager, int folder, std::string_view path,
                                    FileAttributes& attributes);

/// The user whose rights this process has.
std::uint32_t currentUser();

/// The real file system.
FileManager& systemFileManager();

/// From now on a write beyond the limit on the size of files under which the process was started
/// (`ulimit -f`) fails like any other. Without this, the signal SIGXFSZ ends the process, in the
/// middle of a cleanup. Holds for the whole process and may be called again.
void ignoreFileSizeSignal();

}  // namespace broomtide
