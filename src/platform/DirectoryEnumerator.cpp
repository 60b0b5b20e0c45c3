#include "platform/DirectoryEnumerator.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <utility>

#include "core/ServiceInterfaces.h"

// How a tree is read. Every folder on the way from the top to the current entry is a level, which
// keeps the names whose turn has not come: with `byName` those of all its entries, with
// `foldersAfter` those of its subfolders, while its other entries are handed out straight from the
// kernel's buffer.
//
//   top ─ level 0 ─ level 1 ─ … ─ level n     the levels before uppermostOpen_ have no descriptor
//
// Going down opens the next folder by its name from the descriptor of the level, without following
// a symlink. When more than `maxOpenFolders` are open then, the uppermost descriptor is closed.
// Going up to a level without a descriptor opens ".." of the level below and compares device and
// inode with what was seen before. When they differ, a folder was moved meanwhile; the level stays
// without a descriptor, and what is left in it is reported as stale (ESTALE).

namespace broomtide {
namespace {

constexpr std::size_t bufferSize = 64 * 1024;
constexpr std::size_t maxOpenFolders = 16;
constexpr std::uint32_t comparisonsPerCheck = 4096;

EntryType entryType(unsigned char kernelType) {
  switch (kernelType) {
    case DT_REG:
      return EntryType::file;
    case DT_DIR:
      return EntryType::folder;
    case DT_LNK:
      return EntryType::link;
    case DT_UNKNOWN:
      return EntryType::unreadable;
    default:
      return EntryType::other;
  }
}

EntryType entryType(const FileAttributes& attributes) {
  if (attributes.isRegularFile()) return EntryType::file;
  if (attributes.isFolder()) return EntryType::folder;
  return attributes.isLink() ? EntryType::link : EntryType::other;
}

std::uint64_t firstBytes(const char* name, std::size_t length) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, name, std::min(length, sizeof bytes));
  return __builtin_bswap64(bytes);  // the first byte becomes the most significant one
}

bool isDotOrDotDot(const char* name) {
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

}  // namespace

DirectoryEnumerator::DirectoryEnumerator(FileManager& fileManager, Order order,
                                         ErrorFunction onError, std::stop_token stop)
    : fileManager_(fileManager),
      order_(order),
      onError_(std::move(onError)),
      stop_(std::move(stop)),
      buffer_(std::make_unique_for_overwrite<std::byte[]>(bufferSize)) {}

void DirectoryEnumerator::begin(FileDescriptor top) {
  levels_.clear();
  pending_.clear();
  names_.clear();
  path_.clear();
  uppermostOpen_ = 0;
  willEnter_ = false;
  enter(std::move(top));
}

bool DirectoryEnumerator::next() {
  return order_ == Order::byName ? nextByName() : nextFoldersAfter();
}

bool DirectoryEnumerator::nextByName() {
  if (std::exchange(willEnter_, false)) enterNamed(name_, nameLength_);
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.nextPending < level.pendingEnd) {
      const PendingEntry& entry = pending_[level.nextPending++];
      makeCurrent(nameOf(entry), entry.length, entry.type);
      return true;
    }
    leave();
  }
  return false;
}

bool DirectoryEnumerator::nextFoldersAfter() {
  if (std::exchange(willEnter_, false)) addPending();
  while (!levels_.empty()) {
    if (isReading_) {
      if (readRecord()) {
        makeCurrent(name_, nameLength_, type_);
        return true;
      }
      sortPending();
    }
    Level& level = levels_.back();
    if (level.nextPending < level.pendingEnd) {
      const PendingEntry& entry = pending_[level.nextPending++];
      enterNamed(nameOf(entry), entry.length);
    } else {
      leave();
    }
  }
  return false;
}

void DirectoryEnumerator::enter(FileDescriptor folder) {
  const std::size_t pending = pending_.size();
  levels_.push_back({.folder = std::move(folder),
                     .identity = {},
                     .pathLength = path_.size(),
                     .namesStart = names_.size(),
                     .pendingStart = pending,
                     .nextPending = pending,
                     .pendingEnd = pending});
  if (levels_.size() - uppermostOpen_ > maxOpenFolders) closeUppermost();

  bufferFilled_ = bufferPosition_ = 0;
  isReading_ = true;
  if (order_ == Order::byName) {
    while (readRecord()) {
      askForType();
      addPending();
    }
    sortPending();
  }
}

void DirectoryEnumerator::enterNamed(const char* name, std::size_t length) {
  const std::size_t folderLength = path_.size();
  FileDescriptor opened;
  const std::error_code error = openIn(levels_.back(), name, opened);
  if (!path_.empty()) path_ += '/';
  path_.append(name, length);
  if (!error) {
    enter(std::move(opened));
    return;
  }
  if (!isNoFolderAnyMore(error)) report(path_, error);
  path_.resize(folderLength);
}

void DirectoryEnumerator::leave() {
  const Level left = std::move(levels_.back());
  levels_.pop_back();
  names_.resize(left.namesStart);
  pending_.resize(left.pendingStart);
  isReading_ = false;
  path_.resize(levels_.empty() ? 0 : levels_.back().pathLength);
  if (!levels_.empty() && levels_.size() <= uppermostOpen_) reopenInnermost(left.folder);
}

// Reads one record of the innermost folder and makes its name and type the current ones. The name
// lies in buffer_ until the next call.
bool DirectoryEnumerator::readRecord() {
  for (;;) {
    if (bufferPosition_ == bufferFilled_) {
      checkForStop();
      bufferPosition_ = bufferFilled_ = 0;
      const std::error_code error = fileManager_.readFolder(
          levels_.back().folder.get(), {buffer_.get(), bufferSize}, bufferFilled_);
      if (error) report(path_, error);
      if (error || bufferFilled_ == 0) {
        bufferFilled_ = 0;
        isReading_ = false;
        return false;
      }
    }
    const std::byte* record = buffer_.get() + bufferPosition_;
    std::uint16_t recordLength = 0;
    std::memcpy(&recordLength, record + offsetof(dirent64, d_reclen), sizeof recordLength);
    bufferPosition_ += recordLength;

    const char* name = reinterpret_cast<const char*>(record + offsetof(dirent64, d_name));
    if (isDotOrDotDot(name)) continue;
    name_ = name;
    nameLength_ = std::strlen(name);
    type_ = entryType(std::to_integer<unsigned char>(record[offsetof(dirent64, d_type)]));
    return true;
  }
}

void DirectoryEnumerator::makeCurrent(const char* name, std::size_t length, EntryType type) {
  name_ = name;
  nameLength_ = length;
  type_ = type;
  askForType();
  willEnter_ = type_ == EntryType::folder;
}

// Asks the current entry itself when its folder did not say.
void DirectoryEnumerator::askForType() {
  typeError_.clear();
  if (type_ != EntryType::unreadable) return;
  FileAttributes attributes;
  typeError_ = readAttributes(attributes);
  if (!typeError_) type_ = entryType(attributes);
}

// Keeps the current name and type for later.
void DirectoryEnumerator::addPending() {
  if (names_.size() > std::numeric_limits<std::uint32_t>::max()) {
    report(path_, std::make_error_code(std::errc::value_too_large));
    isReading_ = false;
    bufferPosition_ = bufferFilled_;
    return;
  }
  pending_.push_back({.prefix = firstBytes(name_, nameLength_),
                      .offset = static_cast<std::uint32_t>(names_.size()),
                      .length = static_cast<std::uint16_t>(nameLength_),
                      .type = type_});
  names_.append(name_, nameLength_ + 1);
  levels_.back().pendingEnd = pending_.size();
}

void DirectoryEnumerator::sortPending() {
  const auto first = pending_.begin() + static_cast<std::ptrdiff_t>(levels_.back().pendingStart);
  std::uint32_t comparisons = 0;
  std::sort(first, pending_.end(),
            [this, &comparisons](const PendingEntry& left, const PendingEntry& right) {
              if (++comparisons % comparisonsPerCheck == 0) checkForStop();
              if (left.prefix != right.prefix) return left.prefix < right.prefix;
              return std::strcmp(nameOf(left), nameOf(right)) < 0;
            });
}

void DirectoryEnumerator::checkForStop() const {
  if (stop_.stop_requested()) throw CancellationError();
}

void DirectoryEnumerator::closeUppermost() {
  Level& level = levels_[uppermostOpen_++];
  if (fileManager_.readAttributes(level.folder.get(), "", LinkPolicy::doNotFollow,
                                  level.identity)) {
    level.identity = {};  // equal to no folder, so it will not be found again
  }
  level.folder.reset();
}

// A level that cannot be found again stays without a descriptor, and what is left in it is
// reported as stale.
void DirectoryEnumerator::reopenInnermost(const FileDescriptor& child) {
  uppermostOpen_ = levels_.size() - 1;
  Level& level = levels_.back();
  FileDescriptor parent;
  FileAttributes found;
  if (!child.isOpen() ||
      fileManager_.openFolder(child.get(), "..", LinkPolicy::doNotFollow, parent) ||
      fileManager_.readAttributes(parent.get(), "", LinkPolicy::doNotFollow, found)) {
    return;
  }
  if (found.device == level.identity.device && found.inode == level.identity.inode) {
    level.folder = std::move(parent);
  }
}

std::error_code DirectoryEnumerator::openIn(const Level& level, const char* name,
                                            FileDescriptor& opened) {
  if (!level.folder.isOpen()) return {ESTALE, std::generic_category()};
  return fileManager_.openFolder(level.folder.get(), name, LinkPolicy::doNotFollow, opened);
}

void DirectoryEnumerator::report(std::string_view relativePath, std::error_code error) {
  onError_(relativePath, error);
}

bool DirectoryEnumerator::isFirstInFolder() const {
  return levels_.back().nextPending == levels_.back().pendingStart + 1;
}

std::string_view DirectoryEnumerator::relativePath() {
  entryPath_ = path_;
  if (!entryPath_.empty()) entryPath_ += '/';
  return entryPath_.append(name_, nameLength_);
}

std::error_code DirectoryEnumerator::readAttributes(FileAttributes& attributes) {
  const Level& level = levels_.back();
  if (!level.folder.isOpen()) return {ESTALE, std::generic_category()};
  return fileManager_.readAttributes(level.folder.get(), name_, LinkPolicy::doNotFollow,
                                     attributes);
}

std::optional<DirectoryEnumerator::Subtree> DirectoryEnumerator::detachSubtree() {
  // The innermost folder may still be growing; the uppermost one promises the largest subtree.
  for (std::size_t index = uppermostOpen_; index + 1 < levels_.size(); ++index) {
    Level& level = levels_[index];
    if (level.nextPending == level.pendingEnd || !level.folder.isOpen()) continue;
    const PendingEntry& entry = pending_[--level.pendingEnd];
    Subtree subtree;
    subtree.relativePath.assign(path_, 0, level.pathLength);
    if (!subtree.relativePath.empty()) subtree.relativePath += '/';
    subtree.relativePath.append(nameOf(entry), entry.length);
    const std::error_code error = openIn(level, nameOf(entry), subtree.folder);
    if (!error) return subtree;
    if (!isNoFolderAnyMore(error)) report(subtree.relativePath, error);
    return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace broomtide
