#include "soak/TreeState.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "soak/Mismatch.h"
#include "support/TreeSnapshot.h"

namespace broomtide::soak {
namespace {

namespace fs = std::filesystem;

// Gives folders that cannot be read other permissions for as long as it lives.
class OpenedFolders {
 public:
  explicit OpenedFolders(const std::string& path) { open(path, "."); }

  ~OpenedFolders() {
    std::ranges::reverse(opened_);  // the inner ones first, while the outer ones let through
    for (const Opened& folder : opened_) ::chmod(folder.path.c_str(), folder.mode);
  }

  OpenedFolders(const OpenedFolders&) = delete;
  OpenedFolders& operator=(const OpenedFolders&) = delete;

  TreeState lines() const {
    TreeState lines;
    for (const Opened& folder : opened_) {
      lines.push_back(folder.shown + " really has " + std::to_string(folder.mode));
    }
    std::ranges::sort(lines);
    return lines;
  }

 private:
  struct Opened {
    std::string path;
    std::string shown;
    mode_t mode;
  };

  void open(const std::string& path, const std::string& shown) {
    constexpr mode_t readable = S_IRUSR | S_IXUSR;
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) return;
    if ((status.st_mode & readable) != readable) {
      opened_.push_back({.path = path, .shown = shown, .mode = status.st_mode & ALLPERMS});
      ::chmod(path.c_str(), S_IRWXU);
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
      if (entry.is_symlink() || !entry.is_directory()) continue;
      open(entry.path(), shown + '/' + entry.path().filename().native());
    }
  }

  std::vector<Opened> opened_;
};

std::string shortened(const std::string& line) {
  constexpr std::size_t most = 300;
  return line.size() <= most ? line : line.substr(0, most) + "…";
}

}  // namespace

TreeState stateOf(const std::string& path) {
  const OpenedFolders opened(path);
  TreeState lines = test::snapshotOfItem(path);
  for (std::string& line : opened.lines()) lines.push_back(std::move(line));
  return lines;
}

void requireSame(const TreeState& found, const TreeState& expected, const std::string& what,
                 Figures& figures) {
  const auto [first, second] = std::ranges::mismatch(found, expected);
  if (first != found.end() || second != expected.end()) {
    throw Mismatch(what + ", of which the first to differ is now\n  " +
                   (first == found.end() ? "nothing" : shortened(*first)) + "\nand was\n  " +
                   (second == expected.end() ? "nothing" : shortened(*second)));
  }
  figures.entriesCompared += found.size();
  for (const std::string& line : found) figures.bytesCompared += line.size();
}

}  // namespace broomtide::soak
