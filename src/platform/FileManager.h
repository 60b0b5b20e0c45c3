#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

#include "core/Date.h"
#include "platform/FileDescriptor.h"

namespace broomtide {

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

  bool isFolder() const;
  bool isRegularFile() const;
  bool isLink() const;
};

/// What happens to links in a path.
enum class LinkPolicy {
  follow,
  doNotFollow,  ///< the last component is taken as it is, links before it are followed
  refuse,       ///< no component may be a link; only for opening
};

/// What becomes of an item that already has the name that another one is to get.
enum class NameTaken {
  fails,     ///< it stays, and the operation fails with file_exists
  replaces,  ///< a file is replaced, with no moment without either
};

/// Whether opening a folder failed because it has turned into something else, such as a link.
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

  /// Whether this process may read the item at an absolute path, links followed.
  virtual bool isReadable(const std::string& path) = 0;

  /// Whether a regular file that this process may execute is at an absolute path, links followed.
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

  /// Gives an item another name, in the same or in another folder of the same mount, whole or not
  /// at all.
  virtual std::error_code rename(int folder, const char* name, int newFolder, const char* newName,
                                 NameTaken nameTaken) = 0;

  /// Takes the advisory lock of an open folder, which is given back when the descriptor is closed.
  /// Fails with operation_would_block when somebody else holds it.
  virtual std::error_code tryLock(int folder) = 0;
};

/// Opens the folder at `path`, which leads there from an open folder and may be of any length. A
/// link, or anything else that is no folder, on the way or at the end gives an error that
/// isNoFolderAnyMore() recognises. `opened` is left alone on failure.
std::error_code openFolderBelow(FileManager& fileManager, int folder, std::string_view path,
                                FileDescriptor& opened);

/// Reads the attributes of the item at such a path, whose last component may be a link: then those
/// of the link itself.
std::error_code readAttributesBelow(FileManager& fileManager, int folder, std::string_view path,
                                    FileAttributes& attributes);

/// The real file system.
FileManager& systemFileManager();

}  // namespace broomtide
