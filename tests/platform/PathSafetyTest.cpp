#include "platform/PathSafety.h"

#include <filesystem>

#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using test::TemporaryTree;

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
