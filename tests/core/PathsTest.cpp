#include "core/Paths.h"

#include "core/Utf8.h"

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

TEST(Utf8, CountsAndShowsBytesThatAreNoText) {
  struct Case {
    std::string bytes;
    std::size_t characters;
    std::string shown;
  };
  const std::vector<Case> cases{
      {"abc", 3, "abc"},
      {"ü€😀", 3, "ü€😀"},
      {"a\xff"
       "b",
       3, "a\uFFFDb"},
      {"\xE2\x82", 2, "\uFFFD"},  // one cut-off character
      {"\xE2\x82"
       "A",
       3, "\uFFFDA"},
      {"\xC0\xAF", 2, "\uFFFD\uFFFD"},                      // overlong
      {"\xED\xA0\x80", 3, "\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", 4, "\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last code point
      {"\xF0\x9F\x98", 3, "\uFFFD"},
  };
  for (const Case& item : cases) {
    EXPECT_EQ(utf8::characterCount(item.bytes), item.characters) << item.shown;
    EXPECT_EQ(utf8::printable(item.bytes), item.shown);
  }
}

}  // namespace
}  // namespace broomtide
