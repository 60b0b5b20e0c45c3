// Items, folders and paths that are swapped, links, or not what they seem.

#include <filesystem>

#include "platform/FileManager.h"
#include "platform/PathSafety.h"
#include "support/FaultyFileManager.h"
#include "support/OwnProcess.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using test::TemporaryTree;

// Once as the kernel opens a path, once as it is opened where the kernel cannot.
TEST(FileManager, OpensAndExaminesBelowAFolderThroughNoLink) {
  test::TemporaryTree tree;
  tree.file("a/b/c/file");
  tree.link("b", "a/link");
  tree.link("/", "a/out");
  test::FaultyFileManager files;
  FileDescriptor top;
  ASSERT_FALSE(
      files.openFolder(workingDirectory, tree.root().c_str(), LinkPolicy::doNotFollow, top));
  for (const std::errc answer :
       {std::errc(), std::errc::function_not_supported, std::errc::operation_not_permitted}) {
    files.onOpen = [answer](const std::string& name) {
      const bool isPath = name.find('/') != std::string::npos;
      return std::make_error_code(isPath ? answer : std::errc());
    };
    FileDescriptor opened;
    EXPECT_FALSE(openFolderBelow(files, top.get(), "a/b/c", opened));
    FileAttributes attributes;
    EXPECT_FALSE(files.readAttributes(opened.get(), "file", LinkPolicy::doNotFollow, attributes));
    const std::uint64_t inode = attributes.inode;
    EXPECT_FALSE(readAttributesBelow(files, top.get(), "a/b/c/file", attributes));
    EXPECT_EQ(attributes.inode, inode);
    EXPECT_FALSE(readAttributesBelow(files, top.get(), "a/link", attributes));
    EXPECT_TRUE(attributes.isLink());
    EXPECT_FALSE(readAttributesBelow(files, top.get(), "a", attributes));
    EXPECT_TRUE(attributes.isFolder());

    for (const char* path : {"a/link", "a/link/c", "a/out/tmp", "a/b/c/file"}) {
      const std::error_code error = openFolderBelow(files, top.get(), path, opened);
      EXPECT_TRUE(isNoFolderAnyMore(error)) << path << ": " << error.message();
    }
    EXPECT_TRUE(readAttributesBelow(files, top.get(), "a/link/c", attributes));
    EXPECT_EQ(openFolderBelow(files, top.get(), "a/x/c", opened),
              std::errc::no_such_file_or_directory);
  }
}

TEST(PathSafety, ResolvesLinksBeforeItCompares) {
  TemporaryTree tree;
  tree.folder("Project/real");
  tree.folder("Project2");
  tree.link("../Project2", "Project/out");
  tree.link("real", "Project/in");
  tree.link("Project", "link");
  const std::string root = tree.path("Project");
  EXPECT_TRUE(PathSafety::contains(root + "/real", root));
  EXPECT_TRUE(PathSafety::contains(root + "/missing/below", root));
  EXPECT_TRUE(PathSafety::contains(root + "/in/x", root));
  EXPECT_TRUE(PathSafety::contains(tree.path("link/real"), root));
  EXPECT_TRUE(PathSafety::contains(root + "/real", tree.path("link")));
  EXPECT_FALSE(PathSafety::contains(root + "/out/x", root));
  EXPECT_FALSE(PathSafety::contains(root, root));
  EXPECT_FALSE(PathSafety::contains(tree.path("Project2"), root));
  EXPECT_FALSE(PathSafety::contains(root, "/"));
}

TEST(PathSafety, ResolvesWhatTheKernelNamesInItsOwnWay) {
  TemporaryTree tree;
  tree.folder("gone (deleted)");
  tree.link("gone (deleted)", "link");
  tree.link("nowhere", "dangling");
  std::string deep = tree.root();  // longer than a path that the kernel gives
  for (int level = 0; level < 20; ++level) deep += '/' + std::string(250, 'd');
  const std::vector<std::pair<std::string, std::string>> cases{
      {tree.path("link"), tree.path("gone (deleted)")},
      {tree.path("link/../link/x"), tree.path("gone (deleted)/x")},
      {tree.path("./link/."), tree.path("gone (deleted)")},
      {tree.path("dangling"), tree.path("dangling")},
      {tree.path("missing/./below"), tree.path("missing/below")},
      {deep, deep},
      {"/", "/"},
  };
  for (const auto& [path, expected] : cases) EXPECT_EQ(PathSafety::resolved(path), expected);
}

TEST(FileIdentity, ChangesWithTheItemAndNotWithItsContents) {
  TemporaryTree tree;
  const std::string item = tree.file("item", "one");
  const std::string first = test::identityOf(item);
  tree.file("item", "another");
  EXPECT_EQ(test::identityOf(item), first);
  std::filesystem::rename(tree.file("other"), item);
  EXPECT_NE(test::identityOf(item), first);
  tree.link("nowhere", "dangling");
  EXPECT_THAT(test::identityOf(tree.path("dangling")), testing::EndsWith(":40960"));
}

}  // namespace
}  // namespace broomtide
