#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/FileManager.h"

namespace broomtide {

/// What a folder says of an entry, without looking at the entry itself.
enum class EntryType : std::uint8_t {
  file,
  folder,
  link,
  other,       ///< a pipe, socket or device
  unreadable,  ///< the folder does not say, and the entry cannot be examined
};

/// Enumerates everything below an open folder, depth first, following no symlink.
///
/// Folders are opened by name from their parent's descriptor, so the enumeration cannot leave the
/// folder it began in whatever is renamed under it, and paths of any length work. The number of
/// descriptors and the depth of the call stack do not grow with the tree: when a tree is deep, the
/// descriptors of its upper folders are closed and found again through "..", checked by identity.
/// One enumerator can be used for many trees, one after the other, and keeps its memory.
/// Not for use by two threads at once.
class DirectoryEnumerator {
 public:
  enum class Order {
    byName,        ///< siblings by name in byte order, a folder directly before what is in it
    foldersAfter,  ///< the entries of a folder as the system returns them, then its subfolders by
                   ///< name; only the names of the subfolders are kept
  };

  /// Called with the relative path of a folder that cannot be opened or read; the enumeration goes
  /// on after it. A folder that has turned into something else meanwhile is passed over silently.
  using ErrorFunction = std::function<void(std::string_view relativePath, std::error_code error)>;

  /// Once `stop` is asked to stop, reading a large folder ends with a CancellationError.
  DirectoryEnumerator(FileManager& fileManager, Order order, ErrorFunction onError,
                      std::stop_token stop = {});

  /// Starts over, with the open folder `top`.
  void begin(FileDescriptor top);

  /// Advances to the next entry; false when there is none. A folder that was the current entry is
  /// entered unless it was skipped.
  bool next();

  /// The current entry. The views stay valid until the next call of next() or relativePath().
  std::string_view name() const { return {name_, nameLength_}; }
  EntryType type() const { return type_; }
  std::string_view folderPath() const { return path_; }  ///< of the folder that holds the entry
  std::string_view relativePath();
  std::error_code typeError() const { return typeError_; }  ///< why the type is `unreadable`

  /// Whether the current entry is the first one of its folder. Only in the order `byName`.
  bool isFirstInFolder() const;

  /// Calls `visit` with the name and the type of each entry of the current entry's folder, in
  /// order. Only in the order `byName`.
  template <typename Visit>
  void forEachInFolder(Visit visit) const {
    const Level& level = levels_.back();
    for (std::size_t index = level.pendingStart; index < level.pendingEnd; ++index) {
      const PendingEntry& entry = pending_[index];
      visit(std::string_view(nameOf(entry), entry.length), entry.type);
    }
  }

  /// The open folder that holds the current entry; none while it cannot be found again. It belongs
  /// to the enumeration.
  int folder() const { return levels_.back().folder.get(); }

  /// Passes over what is left of the current entry's folder, and over the entry. Only in the order
  /// `byName`.
  void skipRestOfFolder() {
    levels_.back().nextPending = levels_.back().pendingEnd;
    willEnter_ = false;
  }

  /// Keeps the enumeration from entering the current entry.
  void skipDescendants() { willEnter_ = false; }

  /// Reads the current entry's attributes; those of the symlink itself for a symlink.
  std::error_code readAttributes(FileAttributes& attributes);

  /// A subfolder taken out of an enumeration.
  struct Subtree {
    FileDescriptor folder;
    std::string relativePath;
  };

  /// Takes one subfolder that is still to be entered out of this enumeration, so that another one
  /// can take it over; nothing when there is none at hand. Only in the order `foldersAfter`.
  std::optional<Subtree> detachSubtree();

 private:
  // An entry whose turn has not come; its name is in names_, ended by a zero byte.
  struct PendingEntry {
    std::uint64_t prefix;  // the first bytes of the name, which decide most comparisons
    std::uint32_t offset;
    std::uint16_t length;
    EntryType type;
  };

  // A folder on the way from the top to the current entry.
  struct Level {
    FileDescriptor folder;    // closed while it is not needed and descriptors are scarce
    FileAttributes identity;  // read just before the descriptor is closed
    std::size_t pathLength;   // of path_ when this is the innermost folder
    std::size_t namesStart;   // where its names begin in names_
    std::size_t pendingStart;
    std::size_t nextPending;
    std::size_t pendingEnd;
  };

  bool nextByName();
  bool nextFoldersAfter();
  void enter(FileDescriptor folder);
  void enterNamed(const char* name, std::size_t length);
  void leave();
  bool readRecord();
  void makeCurrent(const char* name, std::size_t length, EntryType type);
  void askForType();
  void addPending();
  void sortPending();
  void checkForStop() const;
  const char* nameOf(const PendingEntry& entry) const { return names_.data() + entry.offset; }
  void closeUppermost();
  void reopenInnermost(const FileDescriptor& child);
  std::error_code openIn(const Level& level, const char* name, FileDescriptor& opened);
  void report(std::string_view relativePath, std::error_code error);

  FileManager& fileManager_;
  Order order_;
  ErrorFunction onError_;
  const std::stop_token stop_;

  std::unique_ptr<std::byte[]> buffer_;
  std::size_t bufferFilled_ = 0;
  std::size_t bufferPosition_ = 0;
  bool isReading_ = false;  // the innermost folder has records left to read

  std::vector<Level> levels_;
  std::size_t uppermostOpen_ = 0;  // the levels above this one have no descriptor
  std::vector<PendingEntry> pending_;
  std::string names_;
  std::string path_;  // of the innermost folder, relative to the top
  std::string entryPath_;

  const char* name_ = "";
  std::size_t nameLength_ = 0;
  EntryType type_ = EntryType::other;
  std::error_code typeError_;
  bool willEnter_ = false;
};

}  // namespace broomtide
