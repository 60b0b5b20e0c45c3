#include "support/TemporaryTree.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace broomtide::test {

namespace fs = std::filesystem;

TemporaryTree::TemporaryTree() {
  std::string pattern = fs::temp_directory_path() / "broomtide-test-XXXXXX";
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  root_ = pattern;
}

TemporaryTree::~TemporaryTree() {
  // Trees deeper than the library can remove exist here.
  EXPECT_EQ(std::system(("chmod -R u+rwX '" + root_ + "' && rm -rf '" + root_ + "'").c_str()), 0);
}

std::string TemporaryTree::path(std::string_view relative) const {
  return relative.empty() ? root_ : root_ + '/' + std::string(relative);
}

std::string TemporaryTree::folder(std::string_view relative) const {
  fs::create_directories(path(relative));
  return path(relative);
}

std::string TemporaryTree::file(std::string_view relative, std::string_view contents) const {
  fs::create_directories(fs::path(path(relative)).parent_path());
  std::ofstream(path(relative)) << contents;
  return path(relative);
}

void TemporaryTree::link(std::string_view target, std::string_view relative) const {
  fs::create_directories(fs::path(path(relative)).parent_path());
  fs::create_symlink(target, path(relative));
}

void TemporaryTree::pipe(std::string_view relative) const {
  ASSERT_EQ(::mkfifo(path(relative).c_str(), 0600), 0);
}

void TemporaryTree::run(const std::string& command, std::string_view relative) const {
  const std::string line = "cd '" + path(relative) + "' && { " + command + "; } >/dev/null 2>&1";
  ASSERT_EQ(std::system(line.c_str()), 0) << command;
}

void TemporaryTree::repository(std::string_view relative) const {
  folder(relative);
  // Of what Git would copy into each new repository, the tests need this folder alone.
  run("git init -q --template= && mkdir -p .git/info && git add -A && "
      "git -c user.name=t -c user.email=t@example.org commit -q --allow-empty -m all",
      relative);
}

}  // namespace broomtide::test
