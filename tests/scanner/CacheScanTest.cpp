#include "scanner/CacheScan.h"

#include "support/FaultyFileManager.h"
#include "support/ScanRecorder.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using test::FaultyFileManager;
using test::pathsOf;
using test::ScanRecorder;
using test::TemporaryTree;

TEST(CacheScan, ReportsItsTargetsInOrder) {
  TemporaryTree tree;
  tree.file("Library/Caches/pip/http/a", "x");
  tree.file(".cargo/registry/b", "x");
  tree.file(".cargo/registry/c", "x");
  tree.folder(".npm/_cacache/empty");
  tree.file("Library/Caches/Unknown/x", "x");
  ScanRecorder recorder;
  const ScanResult result = recorder.scan(tree.root(), ScanMode::caches);
  EXPECT_EQ(recorder.updates, (std::vector<std::string>{
                                  "0 0 Calculating Library/Caches/pip… (0)",
                                  "2 4096 Calculating Library/Caches/pip… (0)",
                                  "2 4096 Library/Caches/pip (1)",
                                  "0 4096 Calculating .npm/_cacache… (1)",
                                  "1 4096 Calculating .npm/_cacache… (1)",
                                  "0 4096 Calculating .cargo/registry… (1)",
                                  "2 12288 Calculating .cargo/registry… (1)",
                                  "2 12288 .cargo/registry (2)",
                                  "0 12288 Scan complete (2)",
                              }));
  ASSERT_EQ(pathsOf(result), (std::vector<std::string>{"Library/Caches/pip", ".cargo/registry"}));
  EXPECT_TRUE(result.candidates[0].isSelected);
  EXPECT_FALSE(result.candidates[1].isSelected);
  EXPECT_EQ(result.candidates[0].evidence.lines().at(0).text(),
            "Well-known developer cache location (~/Library/Caches/pip).");
}

// Through a link, two rows can name one folder, or one location lie within another: only the inner
// one is offered, whichever of them comes first, so that nothing counts twice and nothing goes
// along unseen.
TEST(CacheScan, TakesNoLocationTwiceAndNoneThatHoldsAnother) {
  struct Case {
    std::string target, link;
    std::vector<std::string> files, offered;
  };
  for (const Case& row : std::vector<Case>{
           {".cache/bazel", ".npm", {".cache/bazel/_cacache/x"}, {".npm/_cacache"}},
           {".cache/uv", ".cargo", {".cache/uv/git/x", ".cache/uv/x"}, {".cargo/git"}},
           {".ccache",
            ".cache",
            {".ccache/ccache/a/x", ".ccache/uv/x", ".ccache/firefox/x"},
            {".cache/uv", ".cache/ccache/a"}},
           {".cache/uv-2",
            ".npm",
            {".cache/uv/x", ".cache/uv-2/_cacache/x"},
            {".npm/_cacache", ".cache/uv"}},
           {"Library/Caches",
            ".cache",
            {"Library/Caches/pip/http/a", "Library/Caches/uv/b", "Library/Caches/uv/c"},
            {".cache/uv", "Library/Caches/pip"}},  // the larger one first
       }) {
    TemporaryTree tree;
    for (const std::string& path : row.files) tree.file(path, "x");
    tree.link(row.target, row.link);
    EXPECT_EQ(pathsOf(ScanRecorder().scan(tree.root(), ScanMode::caches)), row.offered) << row.link;
  }
}

TEST(CacheScan, LeavesTheRootThroughNoLink) {
  TemporaryTree outside;
  outside.file("pip/x", "x");
  outside.file("_cacache/x", "x");
  TemporaryTree tree;
  tree.file("moved/go-build/x", "x");
  tree.file("real/x", "x");
  tree.link(outside.root(), ".npm");              // leads out on the way
  tree.link("../../real", "Library/Caches/pip");  // is itself a link
  tree.link("../moved", ".gradle/inside");
  EXPECT_TRUE(ScanRecorder().scan(tree.root(), ScanMode::caches).candidates.empty());

  tree.run("rm -r Library && mkdir Library && ln -s ../moved Library/Caches");  // stays inside
  EXPECT_EQ(pathsOf(ScanRecorder().scan(tree.root(), ScanMode::caches)),
            std::vector<std::string>{"Library/Caches/go-build"});
}

}  // namespace
}  // namespace broomtide
