#include "reliability/SwappedTree.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/TreeSnapshot.h"

namespace broomtide::test {

namespace fs = std::filesystem;

namespace {

bool rename(const std::string& from, const std::string& to, unsigned int flags) {
  return ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), flags) == 0;
}

// Takes the item at a path to `hidden` and puts a link to `target` in its place; or, where the link
// is there already, takes it to `away` and brings the item back.
bool putOrTakeLink(const std::string& path, const std::string& away, const std::string& target,
                   const std::string& hidden) {
  std::error_code error;
  if (fs::is_symlink(path, error)) {
    return rename(path, away, RENAME_NOREPLACE) && rename(hidden, path, RENAME_NOREPLACE);
  }
  if (!rename(path, hidden, RENAME_NOREPLACE)) return false;
  fs::create_symlink(target, path, error);
  return !error;
}

}  // namespace

SwappedTree::SwappedTree(SwappedItem item) : item_(std::move(item)) {
  fill("outside");
  const std::string path = tree_.path("outside/" + item_.path());
  const std::string big = item_.isFolder ? path + "/big" : path;
  const int file = ::open(big.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  EXPECT_EQ(::posix_fallocate(file, 0, bytesOutside), 0);
  ::close(file);
  outside_ = snapshotOf(tree_.path("outside"));
}

void SwappedTree::build() {
  for (const char* name : {"scanned", "others", "away", "Trash"}) fs::remove_all(tree_.path(name));
  texts_.clear();
  for (const char* name : {"scanned", "others"}) fill(name);
  tree_.file(item_.isFolder ? "others/other" : "others/other/file", newText());
  tree_.folder("away");
}

void SwappedTree::fill(const std::string& folder) {
  tree_.file(folder + '/' + item_.parent + "/package.json", newText());
  fillItem(folder + '/' + item_.path());
}

void SwappedTree::fillItem(const std::string& path) {
  if (item_.isFolder) {
    tree_.file(path + "/file", newText());
    tree_.file(path + "/deep/file", newText());
  } else {
    tree_.file(path, newText());
  }
}

bool SwappedTree::putNewItem() {
  const std::string path = scanned() + '/' + item_.path();
  if (!rename(path, newAway(), RENAME_NOREPLACE)) return false;
  fillItem("others/new");
  return rename(tree_.path("others/new"), path, RENAME_NOREPLACE);
}

std::string SwappedTree::newText() { return *texts_.insert("text " + std::to_string(++count_)); }

std::string SwappedTree::newAway() { return tree_.path("away/" + std::to_string(++count_)); }

bool SwappedTree::swap(Swap swap) {
  const std::string parent = scanned() + '/' + item_.parent, path = scanned() + '/' + item_.path();
  const std::string otherParent = tree_.path("others/" + item_.parent);
  const bool isParentSwapped = swap == Swap::parentByLink || swap == Swap::parentByParent;
  // What a link leads to is not for anybody to touch.
  if (!isParentSwapped && (fs::is_symlink(parent) || fs::is_symlink(otherParent))) return false;
  switch (swap) {
    case Swap::itemByLink:
      return putOrTakeLink(path, newAway(), tree_.path("outside/" + item_.path()),
                           tree_.path("away/item"));
    case Swap::itemByItem:
      return rename(path, otherParent + '/' + item_.name, RENAME_EXCHANGE);
    case Swap::itemByNewItem:
      return putNewItem();
    case Swap::itemByOther:
      return rename(path, tree_.path("others/other"), RENAME_EXCHANGE);
    case Swap::parentByLink:
      return putOrTakeLink(parent, newAway(), tree_.path("outside/" + item_.parent),
                           tree_.path("away/parent"));
    case Swap::parentByParent:
      return rename(parent, otherParent, RENAME_EXCHANGE);
  }
  return false;
}

void SwappedTree::swapRoot() {
  rename(scanned(), newAway(), RENAME_NOREPLACE);
  fs::create_symlink(tree_.path("outside"), scanned());
}

void SwappedTree::expectNothingLost() const {
  std::multiset<std::string> found;
  for (const char* name : {"scanned", "others", "away", "Trash/files"}) {
    const std::string folder = tree_.path(name);
    if (!fs::exists(folder) || fs::is_symlink(folder)) continue;
    for (const auto& item : fs::recursive_directory_iterator(folder)) {
      if (item.is_symlink() || !item.is_regular_file()) continue;
      std::ifstream file(item.path());
      found.emplace(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
  }
  EXPECT_EQ(found, texts_);
  EXPECT_EQ(snapshotOf(tree_.path("outside")), outside_);
}

}  // namespace broomtide::test
