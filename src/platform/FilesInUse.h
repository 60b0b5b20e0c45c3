#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/MountTable.h"

namespace broomtide {

/// What processes use of the file system at one moment: the folders that they work in, their root
/// folders and programs, and the files that they have opened or mapped. This process does not
/// count. What this user may not see is passed over, and what has been deleted is not in use.
class FilesInUse {
 public:
  /// A process, as people can find it.
  struct Process {
    std::string id;    ///< in decimal
    std::string name;  ///< what it calls itself: bytes that anybody may have chosen
  };

  /// Looks at all processes. Never fails, and waits for no file system.
  static FilesInUse now();

  /// A process that uses the item at `path`, absolute and without symlinks, or anything below it,
  /// whatever mount it goes through; or that uses what has this identity token, whatever its name.
  std::optional<Process> userOf(const std::string& path, const std::string& identity) const;

 private:
  class Reader;
  using ProcessIndex = std::size_t;

  std::vector<Process> processes_;
  std::vector<MountTable::Mount> mounts_;
  std::unordered_map<std::string, ProcessIndex>
      byPlace_;  // in a file system; folders above as well
  std::unordered_map<std::string, ProcessIndex> byIdentity_;
};

}  // namespace broomtide
