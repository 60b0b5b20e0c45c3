#include "platform/DirectoryEnumerator.h"

#include <sys/resource.h>

#include <filesystem>

#include "support/FaultyFileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using Order = DirectoryEnumerator::Order;
using test::FaultyFileManager;
using test::TemporaryTree;

class Enumeration : public testing::Test {
 protected:
  // Runs `step` at every entry and returns the relative paths in order, errors marked with "!".
  std::vector<std::string> paths(Order order,
                                 const std::function<void(DirectoryEnumerator&)>& step = nullptr) {
    std::vector<std::string> result;
    DirectoryEnumerator entries(files, order, [&](std::string_view path, std::error_code error) {
      result.push_back("!" + std::string(path) + ": " + error.message());
    });
    FileDescriptor top;
    EXPECT_FALSE(files.openFolder(workingDirectory, tree.root().c_str(), LinkPolicy::follow, top));
    entries.begin(std::move(top));
    while (entries.next()) {
      result.emplace_back(entries.relativePath());
      if (step) step(entries);
    }
    return result;
  }

  TemporaryTree tree;
  FaultyFileManager files;
};

TEST_F(Enumeration, OrdersSiblingsByBytesAndFollowsNoLink) {
  for (const char* path :
       {"a/x", "a/b/y", "a-b", "a b", "A", "longer-than-eight-2", "longer-than-eight-10", "\xff"}) {
    tree.file(path);
  }
  tree.link(".", "loop");
  tree.link("a", "to-a");
  const std::vector<std::string> expected{"A",
                                          "a",
                                          "a/b",
                                          "a/b/y",
                                          "a/x",
                                          "a b",
                                          "a-b",
                                          "longer-than-eight-10",
                                          "longer-than-eight-2",
                                          "loop",
                                          "to-a",
                                          "\xff"};
  EXPECT_EQ(paths(Order::byName), expected);
  EXPECT_THAT(paths(Order::foldersAfter), testing::UnorderedElementsAreArray(expected));
}

TEST_F(Enumeration, LearnsTypesThatFoldersDoNotTell) {
  tree.file("folder/file");
  tree.link("file", "folder/link");
  tree.pipe("folder/pipe");
  files.hidesTypes = true;
  std::vector<EntryType> types;
  paths(Order::byName, [&](DirectoryEnumerator& entry) { types.push_back(entry.type()); });
  EXPECT_EQ(types,
            (std::vector{EntryType::folder, EntryType::file, EntryType::link, EntryType::other}));

  files.onAttributes = [](const std::string&) { return std::make_error_code(std::errc::io_error); };
  EXPECT_EQ(paths(Order::byName,
                  [](DirectoryEnumerator& entry) {
                    EXPECT_EQ(entry.type(), EntryType::unreadable);
                    EXPECT_EQ(entry.typeError(), std::errc::io_error);
                  }),
            std::vector<std::string>{"folder"});
}

TEST_F(Enumeration, GoesOnAfterFoldersThatCannotBeOpenedOrRead) {
  tree.folder("broken/inside");
  tree.folder("changed");
  tree.folder("gone");
  tree.file("whole/file");
  files.onOpen = [](const std::string& name) {
    if (name == "broken") return std::make_error_code(std::errc::permission_denied);
    if (name == "changed") return std::make_error_code(std::errc::not_a_directory);
    if (name == "gone") return std::make_error_code(std::errc::no_such_file_or_directory);
    return std::error_code();
  };
  EXPECT_EQ(paths(Order::byName),
            (std::vector<std::string>{"broken", "!broken: Permission denied", "changed", "gone",
                                      "!gone: No such file or directory", "whole", "whole/file"}));
}

// A folder that was moved elsewhere must not lead the enumeration out of the tree.
TEST_F(Enumeration, DoesNotFollowAFolderThatIsMovedAway) {
  TemporaryTree elsewhere;
  elsewhere.file("secret/file");
  std::string deep;
  for (int level = 0; level < 40; ++level) {
    deep += "d/";
    tree.folder(deep + "z");
  }
  bool isMoved = false;
  const auto found = paths(Order::byName, [&](DirectoryEnumerator& entry) {
    // The uppermost descriptors are closed by now, so this part is found again through "..".
    if (entry.relativePath().size() < 70 || isMoved) return;
    std::filesystem::rename(tree.path("d/d"), elsewhere.path("moved"));
    isMoved = true;
  });
  EXPECT_TRUE(isMoved);
  EXPECT_THAT(found, testing::Not(testing::Contains(testing::HasSubstr("secret"))));
  EXPECT_THAT(found, testing::Contains("!d/z: Stale file handle"));
}

TEST_F(Enumeration, StaysWithinFewDescriptorsHoweverDeepTheTree) {
  constexpr int depth = 2'000;
  tree.run("n=0; while [ $n -lt " + std::to_string(depth / 100) +
           " ]; do p=.; i=0; while [ $i -lt 100 ]; do p=$p/level; i=$((i+1)); done; "
           "mkdir -p $p && cd -P $p && mkdir z && n=$((n+1)); done");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  const rlimit few{64, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
  for (const Order order : {Order::byName, Order::foldersAfter}) {
    const auto found = paths(order);
    EXPECT_EQ(found.size(), depth + depth / 100);
    EXPECT_THAT(found, testing::Each(testing::Not(testing::StartsWith("!"))));
  }
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
}

}  // namespace
}  // namespace broomtide
