#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "trash/TrashFolder.h"
#include "trash/TrashPlaces.h"

namespace broomtide {

/// The Trash of the desktop, as one cleanup uses it: the user's own, and one at the top of every
/// other mount. Nothing is ever copied or erased: an item for which no Trash can be reached by
/// renaming it stays where it is.
class Trash {
 public:
  /// `home` is the user's own Trash, an absolute path that need not exist yet; without it only the
  /// Trashes of other mounts are used. The file manager must outlive the Trash.
  Trash(FileManager& fileManager, std::optional<std::string> home)
      : fileManager_(fileManager), home_(std::move(home)), known_(home_) {}

  /// Moves an item, unless it has turned into another one, lies in a Trash already, or something is
  /// mounted below it by now: that would move along, and be erased with the Trash. What a failure
  /// leaves behind is told at `TrashFolder::take`.
  std::error_code move(const TrashItem& item);

  /// To be called after the last item: tells file managers the sizes of the folders that were
  /// moved.
  void recordSizes();

 private:
  // A Trash, and where the paths that it writes down begin.
  struct Place {
    explicit Place(FileManager& fileManager) : folder(fileManager) {}

    TrashFolder folder;
    std::string top;  ///< an absolute path; empty when the paths are absolute
  };
  using Mount = std::pair<std::uint64_t, std::uint64_t>;  // device, mount

  std::error_code refuseMountsBelow(const std::string& path);
  std::error_code open(int folder, const std::string& path, const FileAttributes& attributes,
                       Place& place);
  std::error_code compareWithHome(const FileAttributes& attributes, bool& isSame);
  std::error_code openHome(Place& place);
  std::error_code openAtTop(FileDescriptor top, Place& place);
  std::error_code openShared(int top, Place& place);

  FileManager& fileManager_;
  const std::optional<std::string> home_;
  const TrashPlaces known_;
  std::map<Mount, std::unique_ptr<Place>> places_;
};

}  // namespace broomtide
