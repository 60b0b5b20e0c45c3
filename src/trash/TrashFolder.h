#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <vector>

#include "platform/FileManager.h"
#include "trash/TrashFormat.h"

namespace broomtide {

/// An item that is to be moved to the Trash, as it was when it was last looked at.
struct TrashItem {
  std::string folder;     ///< the folder that holds it, an absolute path without any symlink
  std::string name;       ///< its name there
  std::string identity;   ///< its token; anything else that has the name is left alone
  std::int64_t size = 0;  ///< in bytes; what file managers show for a folder in the Trash
  bool isFolder = false;
};

/// Who may have made, or may change, the folders of a Trash.
enum class TrashSharing {
  allowed,  ///< nobody asks: it lies in the user's own files
  refused,  ///< only this user; others may get at the place where it stands
};

/// One Trash: a folder that holds items and, for each, the information where it came from.
class TrashFolder {
 public:
  /// The file manager must outlive the Trash.
  explicit TrashFolder(FileManager& fileManager);

  /// Where no item has come, what was created of the Trash goes again.
  ~TrashFolder() { removeCreated(); }

  TrashFolder(const TrashFolder&) = delete;
  TrashFolder& operator=(const TrashFolder&) = delete;

  /// Opens the Trash of this name in an open folder, and creates what is missing of it. Must
  /// succeed before anything else is done; after a failure there is nothing that was not there
  /// before, and it may be tried again. Fails with permission_denied when sharing it is refused and
  /// one of its folders is somebody else's or can be changed by others, who could take away what
  /// comes there. The Trash itself may be a symlink where sharing it is allowed.
  std::error_code open(FileDescriptor above, const std::string& name, TrashSharing sharing);

  /// Moves an item out of the open folder that holds it. `path` is what is written down as the
  /// place it came from. After a failure the item is where it was. What turned out to be another
  /// one, or to have come from another place, is moved back, beside what has taken its name
  /// meanwhile; only when that fails too, it stays in the Trash with its information.
  std::error_code take(int folder, const TrashItem& item, std::string_view path);

  /// Adds the sizes of the folders that were moved to the list from which file managers read them.
  /// When that fails, they measure the folders themselves.
  void recordSizes();

 private:
  struct MovedFolder {
    std::string name;
    std::int64_t size;
  };

  struct Created {
    int folder;  // that it lies in
    std::string name;
  };

  std::error_code openAll(const std::string& name, TrashSharing sharing);
  std::error_code openOne(int folder, const std::string& name, LinkPolicy links,
                          FileDescriptor& opened);
  void removeCreated();
  std::error_code refuseOthers(int folder);
  bool hasPermissions(int folder);
  std::uint64_t freeNumber(const std::string& name, std::uint64_t taken);
  bool isTaken(const std::string& name);
  std::error_code reserve(const std::string& name, std::string_view information);
  std::error_code moveIn(int folder, const TrashItem& item, const std::string& name);
  std::error_code examine(int folder, const TrashItem& item, const std::string& name);
  std::error_code moveBack(const std::string& name, int folder, const std::string& wanted);
  std::vector<DirectorySize> takeSizes();

  FileManager& fileManager_;
  std::string newName_;  // of information that is being written; free again after each item
  FileDescriptor above_, folder_, info_, files_;
  std::vector<Created> created_;  // in their order; none once an item has come
  std::unordered_map<std::string, std::uint64_t> nextNumbers_;  // by the name of the item
  std::vector<MovedFolder> movedFolders_;
};

}  // namespace broomtide
