#include "trash/TrashFolder.h"

#include <limits>
#include <utility>

#include "core/Uuid.h"
#include "platform/PathSafety.h"
#include "platform/WholeFile.h"
#include "trash/TrashFormat.h"

// The order of steps, which is what keeps an item whole whenever the process is killed:
//
//   1. The information is written whole to a file of another name in info, which no reader takes
//      for information, and renamed to info/NAME.trashinfo without replacing anything. This
//      reserves NAME; when the name is taken, the next number is tried.
//   2. The item is renamed to files/NAME, atomically and without replacing anything.
//   3. What arrived is looked at: the identity that was asked for, out of a folder that is still
//      where it was. Anything else was swapped at the last moment, and is renamed back.
//   4. After a failure in 2 or 3 the information is removed again.
//   5. At the end of a cleanup, the sizes of folders are merged into `directorysizes`, which is
//      replaced by renaming a finished file.
//
// Killed within 1, there is a file that nobody looks at. Killed between 1 and 2, or between the
// steps of 4, there is information without an item, which every reader of a Trash passes over.
// Information that is not whole, and an item without information, are never there.
//
// Others may use the same Trash at any time. All names are relative to descriptors that were opened
// once, so that nothing that is renamed or replaced by a symlink meanwhile leads elsewhere.

namespace broomtide {
namespace {

const std::string sizesName = "directorysizes";
constexpr std::size_t maxSizesBytes = std::size_t{1} << 24U;  // whatever a foreign drive brings

std::string unusedName() { return '.' + newUuid(); }

std::string infoName(const std::string& name) { return name + std::string(trashInfoSuffix); }

// Numbers in a row as long as few are taken, then ever larger steps past the many.
std::uint64_t numberAfter(std::uint64_t number) {
  constexpr std::uint64_t fewNumbers = 16;
  return number < fewNumbers ? number + 1 : number * 2;
}

constexpr std::uint64_t maxNumber = std::numeric_limits<std::uint32_t>::max();

std::error_code readToken(FileManager& fileManager, int folder, const std::string& name,
                          std::string& token) {
  FileAttributes attributes;
  const std::error_code error =
      fileManager.readAttributes(folder, name.c_str(), LinkPolicy::doNotFollow, attributes);
  if (!error) token = FileIdentity::token(attributes);
  return error;
}

}  // namespace

TrashFolder::TrashFolder(FileManager& fileManager)
    : fileManager_(fileManager), newName_(unusedName()) {}

std::error_code TrashFolder::open(FileDescriptor above, const std::string& name,
                                  TrashSharing sharing) {
  above_ = std::move(above);
  const std::error_code error = openAll(name, sharing);
  if (error) removeCreated();
  return error;
}

std::error_code TrashFolder::openAll(const std::string& name, TrashSharing sharing) {
  const bool isShared = sharing == TrashSharing::allowed;
  const LinkPolicy links = isShared ? LinkPolicy::follow : LinkPolicy::doNotFollow;
  if (const auto error = openOne(above_.get(), name, links, folder_)) return error;
  if (const auto error = isShared ? std::error_code() : refuseOthers(folder_.get())) return error;
  for (const auto& [part, opened] :
       {std::pair(trashInformation, &info_), std::pair(trashFiles, &files_)}) {
    if (const auto error = openOne(folder_.get(), part, LinkPolicy::doNotFollow, *opened)) {
      return error;
    }
    if (const auto error = isShared ? std::error_code() : refuseOthers(opened->get())) return error;
  }
  return {};
}

std::error_code TrashFolder::openOne(int folder, const std::string& name, LinkPolicy links,
                                     FileDescriptor& opened) {
  const std::error_code error = fileManager_.createFolder(folder, name.c_str());
  if (error && error != std::errc::file_exists) return error;
  if (!error) created_.push_back({.folder = folder, .name = name});
  return fileManager_.openFolder(folder, name.c_str(), links, opened);
}

void TrashFolder::removeCreated() {
  for (; !created_.empty(); created_.pop_back()) {
    fileManager_.removeFolder(created_.back().folder, created_.back().name.c_str());
  }
}

// Where files have no permissions, every folder may show that everybody can change it. Nothing can
// be kept from others there, in whatever folder it lies.
std::error_code TrashFolder::refuseOthers(int folder) {
  FileAttributes attributes;
  if (const std::error_code error =
          fileManager_.readAttributes(folder, "", LinkPolicy::doNotFollow, attributes)) {
    return error;
  }
  const bool isOwn = attributes.owner == currentUser();
  const bool isRefused = !isOwn || (attributes.isChangeableByOthers() && hasPermissions(folder));
  return isRefused ? std::make_error_code(std::errc::permission_denied) : std::error_code();
}

// Told by a file that is made there: where there are permissions, it is open to this user alone.
bool TrashFolder::hasPermissions(int folder) {
  const std::string name = unusedName();
  FileDescriptor file;
  if (fileManager_.createFile(folder, name.c_str(), file)) return true;
  FileAttributes attributes;
  const std::error_code error =
      fileManager_.readAttributes(file.get(), "", LinkPolicy::doNotFollow, attributes);
  fileManager_.removeFile(folder, name.c_str());
  return error || !attributes.isAccessibleToOthers();
}

std::error_code TrashFolder::take(int folder, const TrashItem& item, std::string_view path) {
  const std::string information = trashInfo(path, std::chrono::system_clock::now());
  std::uint64_t& number = nextNumbers_.try_emplace(item.name, 1).first->second;
  // Others may take a number in the moment after it was found to be free.
  constexpr int maxTries = 64;
  for (int tries = 0; tries < maxTries; ++tries, number = freeNumber(item.name, number)) {
    const std::string name = trashName(item.name, number);
    std::error_code error = reserve(name, information);
    if (error == std::errc::file_exists) continue;
    if (error) return error;
    error = moveIn(folder, item, name);
    if (error == std::errc::file_exists) continue;
    if (error) return error;
    ++number;
    created_.clear();
    if (item.isFolder) movedFolders_.push_back({.name = name, .size = item.size});
    return {};
  }
  return std::make_error_code(std::errc::file_exists);
}

// An item never arrives before its information, which reserves the name.
std::error_code TrashFolder::reserve(const std::string& name, std::string_view information) {
  std::error_code error = WholeFile::create(fileManager_, info_.get(), newName_, information,
                                            WholeFile::Durability::whenConvenient);
  if (error) return error;
  error = fileManager_.rename(info_.get(), newName_.c_str(), info_.get(), infoName(name).c_str(),
                              IfExists::fail);
  if (error) {
    fileManager_.removeFile(info_.get(), newName_.c_str());
    newName_ = unusedName();
  }
  return error;
}

// A number above one that is taken. A row of taken ones is passed in ever larger steps, and the
// last step is searched for its end, so that there is a number for every item, and a small one.
std::uint64_t TrashFolder::freeNumber(const std::string& name, std::uint64_t taken) {
  std::uint64_t free = taken + 1;
  for (; free <= maxNumber && isTaken(trashName(name, free)); free *= 2) taken = free;
  while (free - taken > 1) {
    const std::uint64_t between = taken + (free - taken) / 2;
    (isTaken(trashName(name, between)) ? taken : free) = between;
  }
  return free;
}

bool TrashFolder::isTaken(const std::string& name) {
  FileAttributes ignored;
  return !fileManager_.readAttributes(info_.get(), infoName(name).c_str(), LinkPolicy::doNotFollow,
                                      ignored) ||
         !fileManager_.readAttributes(files_.get(), name.c_str(), LinkPolicy::doNotFollow, ignored);
}

// The information for `name` must exist; it goes again when the item does not come.
std::error_code TrashFolder::moveIn(int folder, const TrashItem& item, const std::string& name) {
  std::error_code error =
      fileManager_.rename(folder, item.name.c_str(), files_.get(), name.c_str(), IfExists::fail);
  if (!error) {
    error = examine(folder, item, name);
    if (!error) return {};
    if (moveBack(name, folder, item.name)) return error;
  }
  fileManager_.removeFile(info_.get(), infoName(name).c_str());
  return error;
}

// Nothing holds an item or its folder fast until it is renamed: another one may have been given the
// name, and the whole folder may have been taken to another place.
std::error_code TrashFolder::examine(int folder, const TrashItem& item, const std::string& name) {
  std::string arrived, left, expected;
  FileDescriptor found;
  if (const auto error = readToken(fileManager_, files_.get(), name, arrived)) return error;
  if (const auto error = readToken(fileManager_, folder, "", left)) return error;
  if (const auto error = fileManager_.openFolder(workingDirectory, item.folder.c_str(),
                                                 LinkPolicy::refuse, found)) {
    return error;
  }
  if (const auto error = readToken(fileManager_, found.get(), "", expected)) return error;
  const bool isRight = arrived == item.identity && left == expected;
  return isRight ? std::error_code() : std::make_error_code(std::errc::operation_canceled);
}

// To where it was, or when that is taken, beside it under the next name that is free.
std::error_code TrashFolder::moveBack(const std::string& name, int folder,
                                      const std::string& wanted) {
  std::string free = wanted;
  for (std::uint64_t number = 1;; free = trashName(wanted, number)) {
    const std::error_code error =
        fileManager_.rename(files_.get(), name.c_str(), folder, free.c_str(), IfExists::fail);
    number = numberAfter(number);
    if (error != std::errc::file_exists || number > maxNumber) return error;
  }
}

std::vector<DirectorySize> TrashFolder::takeSizes() {
  std::vector<DirectorySize> sizes;
  for (const MovedFolder& moved : std::exchange(movedFolders_, {})) {
    FileAttributes attributes;
    const bool isKnown = !fileManager_.readAttributes(info_.get(), infoName(moved.name).c_str(),
                                                      LinkPolicy::doNotFollow, attributes) &&
                         attributes.modificationDate;
    if (!isKnown) continue;
    const auto second = std::chrono::floor<std::chrono::seconds>(*attributes.modificationDate);
    sizes.push_back(
        {.name = moved.name, .size = moved.size, .changedAt = second.time_since_epoch().count()});
  }
  return sizes;
}

void TrashFolder::recordSizes() {
  if (movedFolders_.empty()) return;
  std::string text;
  const std::error_code error = WholeFile::read(fileManager_, folder_.get(), sizesName,
                                                LinkPolicy::doNotFollow, text, maxSizesBytes);
  if (error && error != std::errc::no_such_file_or_directory) return;
  text = withDirectorySizes(text, takeSizes());

  const std::string newName = sizesName + '.' + newUuid();
  if (WholeFile::create(fileManager_, folder_.get(), newName, text,
                        WholeFile::Durability::whenConvenient)) {
    return;
  }
  if (fileManager_.rename(folder_.get(), newName.c_str(), folder_.get(), sizesName.c_str(),
                          IfExists::replace)) {
    fileManager_.removeFile(folder_.get(), newName.c_str());
  }
}

}  // namespace broomtide
