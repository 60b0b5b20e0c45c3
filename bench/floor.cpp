// broomtide-bench-floor: the least any program can do to learn what a tree takes.
//
// Every folder is read with getdents64 and, unless --names-only is given, every regular file asked
// for its blocks; nothing is sorted, judged or kept. What a scan takes beyond this is the scan's
// own.
//
// A folder is opened relative to its parent, so paths have no limit. A parent stays open until its
// last subfolder is, and the folder found last is read first, so few are open at a time.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <functional>
#include <future>
#include <iostream>
#include <iterator>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t batchSize = std::size_t{256} * 1024;
constexpr std::uint64_t blockSize = 512;

class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { close(fd_); }

  [[nodiscard]] int get() const { return fd_; }

 private:
  int fd_;
};

using SharedDescriptor = std::shared_ptr<const Descriptor>;

struct Folder {
  SharedDescriptor parent;  // none for the folder named on the command line
  std::string name;
};

/// The folders still to be read. All threads take from it; it is done when none is left and none is
/// being read.
class Pending {
 public:
  explicit Pending(Folder first) { folders_.push_back(std::move(first)); }

  std::optional<Folder> take() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return !folders_.empty() || reading_ == 0 || stopped_; });
    if (folders_.empty() || stopped_) return std::nullopt;
    auto folder = std::move(folders_.back());
    folders_.pop_back();
    ++reading_;
    return folder;
  }

  /// The folder taken before is read, and this is what it holds. The thread that calls goes on with
  /// one of them itself, so others are woken only for more, or for the end.
  void finish(std::vector<Folder>& found) {
    const std::lock_guard lock(mutex_);
    const bool isWorkForOthers = found.size() > 1;
    folders_.insert(folders_.end(), std::make_move_iterator(found.begin()),
                    std::make_move_iterator(found.end()));
    found.clear();
    --reading_;
    if (isWorkForOthers || (folders_.empty() && reading_ == 0)) changed_.notify_all();
  }

  void stop() {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    changed_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<Folder> folders_;
  std::size_t reading_ = 0;
  bool stopped_ = false;
};

struct Totals {
  std::uint64_t entries = 0;
  std::uint64_t bytes = 0;
  std::uint64_t unreadable = 0;
};

/// One thread's work: its buffer, its totals, the subfolders of the folder it reads.
class Reader {
 public:
  Reader(Pending& pending, bool namesOnly)
      : pending_(pending), namesOnly_(namesOnly), batch_(batchSize) {}

  Totals run() {
    while (auto folder = pending_.take()) {
      read(std::move(*folder));
      pending_.finish(found_);
    }
    return totals_;
  }

 private:
  void read(Folder folder) {
    const int at = folder.parent ? folder.parent->get() : AT_FDCWD;
    const int follow = folder.parent ? O_NOFOLLOW : 0;
    const int fd = openat(at, folder.name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | follow);
    if (fd < 0) {
      // Too few descriptors would make the measurement wrong; a folder of somebody else's does not.
      if (!folder.parent || errno == EMFILE || errno == ENFILE) {
        throw std::system_error(errno, std::generic_category(), folder.name);
      }
      ++totals_.unreadable;
      return;
    }
    const auto opened = std::make_shared<const Descriptor>(fd);
    folder.parent.reset();
    for (;;) {
      const auto size = syscall(SYS_getdents64, fd, batch_.data(), batch_.size());
      if (size < 0) ++totals_.unreadable;
      if (size <= 0) return;
      readBatch(opened, static_cast<std::size_t>(size));
    }
  }

  void readBatch(const SharedDescriptor& folder, std::size_t size) {
    for (std::size_t offset = 0; offset < size;) {
      const char* const record = batch_.data() + offset;
      unsigned short length = 0;
      std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof length);
      offset += length;
      const char* const name = record + offsetof(dirent64, d_name);
      if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) continue;
      ++totals_.entries;
      visit(folder, name, static_cast<unsigned char>(record[offsetof(dirent64, d_type)]));
    }
  }

  void visit(const SharedDescriptor& folder, const char* name, unsigned char type) {
    if (type == DT_UNKNOWN) type = askType(folder->get(), name);
    if (type == DT_DIR) {
      found_.push_back({folder, name});
    } else if (type == DT_REG && !namesOnly_) {
      struct statx attributes {};
      if (statx(folder->get(), name, AT_SYMLINK_NOFOLLOW, STATX_BLOCKS, &attributes) == 0) {
        totals_.bytes += attributes.stx_blocks * blockSize;
      }
    }
  }

  /// For file systems that do not tell the type together with the name.
  static unsigned char askType(int folder, const char* name) {
    struct statx attributes {};
    if (statx(folder, name, AT_SYMLINK_NOFOLLOW, STATX_TYPE, &attributes) != 0) return DT_UNKNOWN;
    return static_cast<unsigned char>(IFTODT(attributes.stx_mode));
  }

  Pending& pending_;
  bool namesOnly_;
  std::vector<char> batch_;
  std::vector<Folder> found_;
  Totals totals_;
};

struct Options {
  std::string folder;
  unsigned threads = 2;
  bool namesOnly = false;
};

constexpr std::string_view usage =
    "usage: broomtide-bench-floor FOLDER [--threads N] [--names-only]\n";

unsigned threadCount(const std::string& text) {
  unsigned value = 0;
  const auto* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc{} || stop != end || value == 0)
    throw std::invalid_argument("--threads needs a number");
  return value;
}

Options parse(const std::vector<std::string>& arguments) {
  Options options;
  for (auto word = arguments.begin(); word != arguments.end(); ++word) {
    if (*word == "--names-only") {
      options.namesOnly = true;
    } else if (*word == "--threads") {
      options.threads = ++word == arguments.end() ? threadCount("") : threadCount(*word);
    } else if (word->starts_with("--")) {
      throw std::invalid_argument("unknown option " + *word);
    } else if (options.folder.empty()) {
      options.folder = *word;
    } else {
      throw std::invalid_argument("only one folder can be read");
    }
    if (word == arguments.end()) break;
  }
  if (options.folder.empty()) throw std::invalid_argument("a folder is needed");
  return options;
}

Totals readTree(const Options& options) {
  Pending pending({nullptr, options.folder});
  const auto work = [&] {
    try {
      return Reader(pending, options.namesOnly).run();
    } catch (...) {
      pending.stop();
      throw;
    }
  };
  std::vector<std::future<Totals>> others;
  for (unsigned i = 1; i < options.threads; ++i)
    others.push_back(std::async(std::launch::async, work));
  auto totals = work();
  for (auto& other : others) {
    const auto more = other.get();
    totals.entries += more.entries;
    totals.bytes += more.bytes;
    totals.unreadable += more.unreadable;
  }
  return totals;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const auto options = parse({argv + 1, argv + argc});
    const auto totals = readTree(options);
    std::cout << totals.entries << " entries";
    if (!options.namesOnly) std::cout << ", " << totals.bytes << " bytes";
    std::cout << "\n";
    if (totals.unreadable > 0) std::cerr << totals.unreadable << " folders could not be read\n";
    return 0;
  } catch (const std::invalid_argument& error) {
    std::cerr << "broomtide-bench-floor: " << error.what() << "\n" << usage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "broomtide-bench-floor: " << error.what() << "\n";
    return 1;
  }
}
