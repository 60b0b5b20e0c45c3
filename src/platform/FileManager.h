#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <system_error>

#include "core/Date.h"
#include "platform/FileDescriptor.h"

namespace broomtide {

/// What the file system says of one item.
struct FileAttributes {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint32_t typeBits = 0;       ///< the mode, masked with the file-type mask
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

/// Whether opening a folder failed because it has turned into something else, such as a link.
bool isNoFolderAnyMore(std::error_code error);

/// Stands for the process's working directory, so that a name may be an absolute path.
extern const int workingDirectory;

/// The file system, one system call an operation, so that tests can make any single call fail.
/// Names are relative to an open folder, which keeps a walk inside the folder it began in.
/// Every operation may be called from any thread.
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

  /// Makes the next read of an open folder begin with its first entry again.
  virtual std::error_code rewindFolder(int folder) = 0;

  /// Reads the attributes of an entry; an empty name means the open folder itself.
  virtual std::error_code readAttributes(int folder, const char* name, LinkPolicy links,
                                         FileAttributes& attributes) = 0;

  /// Whether this process may read the item at an absolute path, links followed.
  virtual bool isReadable(const std::string& path) = 0;

  /// Whether a regular file that this process may execute is at an absolute path, links followed.
  virtual bool isExecutableFile(const std::string& path) = 0;
};

/// The real file system.
FileManager& systemFileManager();

}  // namespace broomtide
