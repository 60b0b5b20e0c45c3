#include "core/Paths.h"

namespace broomtide {
namespace {

TEST(Paths, AreStandardisedByTheirTextAlone) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"/a/b", "/a/b"},
      {"/a/b/", "/a/b"},
      {"//a///b//", "/a/b"},
      {"/a/./b/.", "/a/b"},
      {"/a/../b", "/b"},
      {"/a/b/../..", "/"},
      {"/../..", "/"},
      {"/", "/"},
      {"a/../..", ".."},
      {"../../a", "../../a"},
      {"", "."},
      {"./", "."},
      {"/a/...", "/a/..."},
      {"/a/..b", "/a/..b"},
  };
  for (const auto& [path, expected] : cases) EXPECT_EQ(paths::standardized(path), expected) << path;
}

TEST(Paths, BelowMeansPastASlash) {
  EXPECT_TRUE(paths::isBelow("/src/app/x", "/src/app"));
  EXPECT_FALSE(paths::isBelow("/src/application", "/src/app"));
  EXPECT_FALSE(paths::isBelow("/src/app", "/src/app"));
  EXPECT_FALSE(paths::isBelow("/src", "/"));
}

TEST(Paths, AreRelativeToTheRootOrElseALastComponent) {
  EXPECT_EQ(paths::relativePath("/r/a/../b/c", "/r/"), "b/c");
  EXPECT_EQ(paths::relativePath("/elsewhere/node_modules", "/r"), "node_modules");
  EXPECT_EQ(paths::relativePath("/r", "/r"), "r");
  EXPECT_EQ(paths::relativePath("/r/\xff/ü", "/r"), "\xff/ü");
}

TEST(Paths, ExtensionFollowsTheLastDotThatDoesNotLead) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"a.log", "log"}, {"a.tar.gz", "gz"}, {".log", ""}, {"..log", "log"}, {"a.", ""}, {"a", ""}};
  for (const auto& [name, extension] : cases) {
    EXPECT_EQ(paths::pathExtension(name), extension) << name;
  }
}

}  // namespace
}  // namespace broomtide
