#include "platform/FileManager.h"

#include "support/FaultyFileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

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

// Folders as deep as this are opened many times, so not each of those above is opened every time.
TEST(FileManager, OpensAPathOfAnyLengthInLargePieces) {
  test::TemporaryTree tree;
  const std::string name(200, 'd');
  tree.run("for i in $(seq 50); do mkdir " + name + " && cd -P " + name + "; done; echo > here");
  std::string path = name;
  for (int depth = 1; depth < 50; ++depth) path += '/' + name;
  test::FaultyFileManager files;
  FileDescriptor top;
  ASSERT_FALSE(
      files.openFolder(workingDirectory, tree.root().c_str(), LinkPolicy::doNotFollow, top));
  int calls = 0;
  files.onOpen = [&calls](const std::string&) {
    ++calls;
    return std::error_code();
  };
  FileDescriptor opened;
  ASSERT_FALSE(openFolderBelow(files, top.get(), path, opened));
  EXPECT_EQ(calls, 3);
  FileAttributes attributes;
  EXPECT_FALSE(readAttributesBelow(files, top.get(), path + "/here", attributes));
  EXPECT_TRUE(attributes.isRegularFile());
}

}  // namespace
}  // namespace broomtide
