#include "platform/FileManager.h"

#include <filesystem>

#include "support/FaultyFileManager.h"
#include "support/OwnProcess.h"
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

// Neither could be used, and both would be in the way of the next try.
TEST(FileManager, WhatCannotBeGivenItsPermissionsIsGoneAgain) {
  test::TemporaryTree tree;
  const auto create = [&tree](std::error_code expected) {
    test::refuseToChangePermissions();
    FileDescriptor opened;
    EXPECT_EQ(systemFileManager().createFolder(workingDirectory, tree.path("folder").c_str()),
              expected);
    EXPECT_EQ(systemFileManager().createFile(workingDirectory, tree.path("file").c_str(), opened),
              expected);
    EXPECT_EQ(opened.isOpen(), !expected);
  };
  test::withUmask(0777, [&] { create(std::make_error_code(std::errc::operation_not_permitted)); });
  EXPECT_TRUE(std::filesystem::is_empty(tree.root()));
  test::withUmask(0, [&] { create({}); });
  EXPECT_EQ(test::permissionsOf(tree.path("folder")), 0700U);
}

}  // namespace
}  // namespace broomtide
