// What a process uses is read from the links and the list of mapped files in its folder of /proc.
//
// The kernel names each use by the path through the mount that the process went through. The same
// folder can be seen through several mounts, in another mount namespace as well, so that paths are
// compared as places in their file systems: the device and the path there, which a bind mount of
// the item, of a folder in it or of one around it does not change. Each place is kept with the
// folders above it, so that asking about an item is one look-up.
//
// Processes come and go meanwhile: whatever cannot be read of one is passed over.

#include "platform/FilesInUse.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <climits>
#include <cstdint>
#include <iterator>
#include <map>
#include <span>
#include <string_view>
#include <system_error>
#include <thread>
#include <unordered_set>
#include <utility>

#include "core/Paths.h"
#include "platform/FileManager.h"
#include "platform/PathSafety.h"

namespace broomtide {
namespace {

constexpr std::string_view deletedSuffix = " (deleted)";

FileDescriptor openBelow(int folder, const char* name, int flags) {
  return FileDescriptor(::openat(folder, name, flags | O_CLOEXEC));
}

// The names in a folder that are numbers, as those of processes and descriptors are, each with the
// open folder. Once for each of thousands of processes, which readdir() would take longer for.
template <typename Function>
void forEachNumber(int parent, const char* name, const Function& function) {
  const FileDescriptor folder = openBelow(parent, name, O_RDONLY | O_DIRECTORY);
  constexpr std::size_t recordBytes = std::size_t{1} << 15U;
  alignas(dirent64) std::array<char, recordBytes> buffer;
  for (;;) {
    const ssize_t filled = ::getdents64(folder.get(), buffer.data(), buffer.size());
    if (filled <= 0) return;
    for (ssize_t position = 0; position < filled;) {
      const auto* entry =
          reinterpret_cast<const dirent64*>(&buffer[static_cast<std::size_t>(position)]);
      const bool isNumber = entry->d_name[0] >= '0' && entry->d_name[0] <= '9';
      if (isNumber) function(folder.get(), entry->d_name);
      position += entry->d_reclen;
    }
  }
}

std::string linkTarget(int folder, const char* name) {
  std::array<char, PATH_MAX> target;
  const ssize_t length = ::readlinkat(folder, name, target.data(), target.size());
  return length < 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

// What is known of an item without asking a file system that may never answer.
std::optional<FileAttributes> knownAttributes(int folder, const char* name) {
  struct statx status;
  constexpr int flags = AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
  constexpr unsigned wanted = STATX_TYPE | STATX_INO | STATX_MNT_ID;
  if (::statx(folder, name, flags, wanted, &status) != 0) return std::nullopt;
  FileAttributes attributes;
  attributes.device = makedev(status.stx_dev_major, status.stx_dev_minor);
  attributes.inode = status.stx_ino;
  attributes.typeBits = status.stx_mode & S_IFMT;
  attributes.mount = (status.stx_mask & STATX_MNT_ID) != 0 ? status.stx_mnt_id : 0;
  return attributes;
}

// The kernel marks the path of what was deleted, but a name may also end like that.
bool isDeleted(const std::string& path, const std::string& identity) {
  if (!path.ends_with(deletedSuffix)) return false;
  const auto named = knownAttributes(AT_FDCWD, path.c_str());
  return !named || FileIdentity::token(*named) != identity;
}

template <typename Number>
Number number(std::string_view text, int base) {
  Number result = 0;
  std::from_chars(text.data(), text.data() + text.size(), result, base);
  return result;
}

// The text up to the next of the characters, taken off `line` with those that follow it.
std::string_view takeField(std::string_view& line, char end) {
  const std::string_view field = line.substr(0, line.find(end));
  line.remove_prefix(field.size());
  line.remove_prefix(std::min(line.find_first_not_of(end), line.size()));
  return field;
}

}  // namespace

// Reads processes one by one.
class FilesInUse::Reader {
 public:
  void readProcess(const std::string& id) {
    const FileDescriptor process =
        openBelow(AT_FDCWD, ("/proc/" + id).c_str(), O_PATH | O_DIRECTORY);
    const std::string root = linkTarget(process.get(), "root");
    if (root.empty()) return;
    view_ = &viewOf(process.get(), id, root);
    const std::size_t usesBefore = found_.byPlace_.size() + found_.byIdentity_.size();
    for (const char* name : {"cwd", "root", "exe"}) noteLink(process.get(), name);
    forEachNumber(process.get(), "fd",
                  [this](int files, const char* file) { noteLink(files, file); });
    read(process.get(), "maps");
    noteMappedFiles();
    if (found_.byPlace_.size() + found_.byIdentity_.size() == usesBefore) return;
    read(process.get(), "comm");
    if (text_.ends_with('\n')) text_.pop_back();
    found_.processes_.push_back({.id = id, .name = text_});
  }

  void addTo(FilesInUse& all) {
    const std::size_t before = all.processes_.size();
    std::ranges::move(found_.processes_, std::back_inserter(all.processes_));
    for (const auto& [place, process] : found_.byPlace_) {
      all.byPlace_.try_emplace(place, before + process);
    }
    for (const auto& [identity, process] : found_.byIdentity_) {
      all.byIdentity_.try_emplace(identity, before + process);
    }
  }

 private:
  // The mounts of a mount namespace, and what has been noted of the paths that lead through them.
  struct View {
    std::string root = "/";  // where the mount points begin
    std::vector<MountTable::Mount> mounts;
    std::unordered_set<std::string> notedPaths;
  };

  View& viewOf(int process, const std::string& id, const std::string& root) {
    const std::string space = linkTarget(process, "ns/mnt");
    const bool isOwn = space == ownNamespace_;
    const auto [view, isNew] = views_.try_emplace(isOwn ? space : space + root);
    if (!isNew) return view->second;
    if (!isOwn) view->second.root = root;
    MountTable::read(systemFileManager(), view->second.mounts, isOwn ? "self" : id);
    return view->second;
  }

  void noteLink(int folder, const char* name) {
    const std::string path = linkTarget(folder, name);
    if (!path.starts_with('/')) return;  // a socket, a pipe, or what has no name at all
    if (!view_->notedPaths.insert(path).second) return;
    const std::optional<FileAttributes> attributes = knownAttributes(folder, name);
    if (attributes) note(path, FileIdentity::token(*attributes), attributes->mount);
  }

  void read(int process, const char* name) {
    text_.clear();
    const FileDescriptor file = openBelow(process, name, O_RDONLY);
    std::array<char, PATH_MAX> piece;
    for (;;) {
      const ssize_t count = ::read(file.get(), piece.data(), piece.size());
      if (count <= 0) return;
      text_.append(piece.data(), static_cast<std::size_t>(count));
    }
  }

  // Each line is an address, permissions, an offset, a device, an inode and a path, if there is
  // one. A file mostly takes several lines in a row.
  void noteMappedFiles() {
    std::string_view text = text_, former;
    while (!text.empty()) {
      std::string_view line = text.substr(0, text.find('\n'));
      text.remove_prefix(std::min(line.size() + 1, text.size()));
      const std::size_t slash = line.find('/');
      if (slash == std::string_view::npos || line.substr(slash) == former) continue;
      former = line.substr(slash);
      for (int field = 0; field < 3; ++field) takeField(line, ' ');
      std::string_view device = takeField(line, ' ');
      const auto major = number<unsigned>(takeField(device, ':'), 16);
      FileAttributes attributes;
      attributes.device = makedev(major, number<unsigned>(device, 16));
      attributes.inode = number<std::uint64_t>(takeField(line, ' '), 10);
      attributes.typeBits = S_IFREG;
      if (line != former) continue;
      std::string path = unescaped(line);
      const bool isNew = view_->notedPaths.insert(path).second;
      if (isNew) note(std::move(path), FileIdentity::token(attributes), 0);
    }
  }

  // A list of mapped files has one path on each line.
  static std::string unescaped(std::string_view path) {
    constexpr std::string_view newline = "\\012";
    std::string result(path);
    for (std::size_t at = 0; (at = result.find(newline, at)) != std::string::npos; ++at) {
      result.replace(at, newline.size(), "\n");
    }
    return result;
  }

  void note(std::string path, const std::string& identity, std::uint64_t mount) {
    const ProcessIndex process = found_.processes_.size();  // which it will have
    if (isDeleted(path, identity)) return;
    found_.byIdentity_.try_emplace(identity, process);
    if (view_->root != "/") {
      if (path != view_->root && !paths::isBelow(path, view_->root)) return;
      path.erase(0, view_->root.size());
      if (path.empty()) path = "/";
    }
    std::string place = MountTable::placeInFileSystem(view_->mounts, path, mount);
    while (!place.empty() && found_.byPlace_.try_emplace(place, process).second) {
      place.resize(std::min(place.rfind('/'), place.size()));
      if (place.find('/') == std::string::npos) return;
    }
  }

  FilesInUse found_;
  const std::string ownNamespace_ = linkTarget(AT_FDCWD, "/proc/self/ns/mnt");
  std::map<std::string, View> views_;
  View* view_ = nullptr;  // of the process that is looked at
  std::string text_;      // of a file of it
};

FilesInUse FilesInUse::now() {
  FilesInUse found;
  MountTable::read(systemFileManager(), found.mounts_);
  const std::string self = linkTarget(AT_FDCWD, "/proc/self");
  std::vector<std::string> processes;
  forEachNumber(AT_FDCWD, "/proc", [&](int, const char* id) {
    if (id != self) processes.emplace_back(id);
  });

  // Nearly all of the time goes into system calls, which several processors can make at once.
  std::atomic<std::size_t> next = 0;
  std::array<Reader, 4> readers;
  const auto readWith = [&](Reader& reader) {
    for (std::size_t at = next++; at < processes.size(); at = next++) {
      reader.readProcess(processes[at]);
    }
  };
  {
    std::vector<std::jthread> helpers;
    try {
      for (Reader& reader : std::span(readers).subspan(1)) {
        helpers.emplace_back([&] { readWith(reader); });
      }
    } catch (const std::system_error&) {
      // Whoever is there reads all.
    }
    readWith(readers.front());
  }
  for (Reader& reader : readers) reader.addTo(found);
  return found;
}

std::optional<FilesInUse::Process> FilesInUse::userOf(const std::string& path,
                                                      const std::string& identity) const {
  auto user = byIdentity_.find(identity);
  if (user == byIdentity_.end()) {
    user = byPlace_.find(MountTable::placeInFileSystem(mounts_, path));
    if (user == byPlace_.end()) return std::nullopt;
  }
  return processes_[user->second];
}

}  // namespace broomtide
