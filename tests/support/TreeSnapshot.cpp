#include "support/TreeSnapshot.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace broomtide::test {

namespace fs = std::filesystem;

namespace {

constexpr off_t largestRead = off_t{1} << 24U;

std::string contentsOf(const fs::path& path, const struct stat& status) {
  if (S_ISLNK(status.st_mode)) return fs::read_symlink(path);
  if (!S_ISREG(status.st_mode)) return {};
  if (status.st_size > largestRead) return std::to_string(status.st_size) + " bytes";
  std::string contents(static_cast<std::size_t>(status.st_size), '\0');
  std::ifstream(path).read(contents.data(), status.st_size);
  return contents;
}

std::string lineOf(const fs::path& path, const std::string& root) {
  struct stat status {};
  if (::lstat(path.c_str(), &status) != 0) throw std::runtime_error("an entry vanished");
  return path.lexically_relative(root).native() + ' ' + std::to_string(status.st_mode) + ' ' +
         std::to_string(status.st_mtim.tv_sec) + '.' + std::to_string(status.st_mtim.tv_nsec) +
         ' ' + contentsOf(path, status);
}

}  // namespace

std::vector<std::string> snapshotOf(const std::string& root) {
  std::vector<std::string> lines;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    lines.push_back(lineOf(entry.path(), root));
  }
  std::ranges::sort(lines);
  return lines;
}

}  // namespace broomtide::test
