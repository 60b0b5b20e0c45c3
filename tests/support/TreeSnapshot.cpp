#include "support/TreeSnapshot.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace broomtide::test {

namespace fs = std::filesystem;

namespace {
constexpr off_t largestRead = off_t{1} << 24U;
}

std::vector<std::string> snapshotOf(const std::string& root) {
  std::vector<std::string> lines;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
    struct stat status {};
    if (::lstat(entry.path().c_str(), &status) != 0) throw std::runtime_error("an entry vanished");
    std::string contents;
    if (S_ISREG(status.st_mode) && status.st_size > largestRead) {
      contents = std::to_string(status.st_size) + " bytes";
    } else if (S_ISREG(status.st_mode)) {
      std::ifstream file(entry.path());
      contents.assign(std::istreambuf_iterator<char>(file), {});
    } else if (S_ISLNK(status.st_mode)) {
      contents = fs::read_symlink(entry.path());
    }
    lines.push_back(entry.path().lexically_relative(root).native() + ' ' +
                    std::to_string(status.st_mode) + ' ' + std::to_string(status.st_mtim.tv_sec) +
                    '.' + std::to_string(status.st_mtim.tv_nsec) + ' ' + contents);
  }
  std::ranges::sort(lines);
  return lines;
}

}  // namespace broomtide::test
