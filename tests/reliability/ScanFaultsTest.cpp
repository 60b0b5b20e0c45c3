#include <chrono>
#include <map>

#include "context/GitInspector.h"
#include "core/ServiceInterfaces.h"
#include "reliability/EveryFault.h"
#include "scanner/DefaultFileScanner.h"
#include "support/TreeSnapshot.h"

namespace broomtide {
namespace {

using test::EveryFault;
using test::snapshotOf;

class ScanFaults : public EveryFault {
 protected:
  ScanFaults() {
    files.maxBytesPerRead = 64;  // so that a folder can fail after its first entries
    // File systems list folders in orders of their own, so that some of these come before others.
    for (const char* name : {"package.json", "Cargo.toml", "pom.xml", "mix.exs", "Pipfile"}) {
      tree.file(std::string("web/") + name);
    }
    tree.file("web/.gitignore", "node_modules\n");
    tree.file("web/dist/tracked.js", "tracked");
    tree.file("web/dist/tracked.css", "tracked");
    tree.repository("web");
    tree.file("web/node_modules/m/index.js", "module");
    tree.file("web/node_modules/n/deep/index.js", "module");
    for (const char* name : {"target", ".next", "_build", ".venv"}) {
      tree.file(std::string("web/") + name + "/made", "made");
    }
    tree.file("plain/Cargo.toml");
    tree.file("plain/target/debug/object", "object");
    tree.file("plain/web/package.json");
    tree.file("plain/web/.next/page", "page");
    tree.link("../web", "plain/link");
    tree.file("home/Library/Caches/pip/http/a", "cached");
    tree.file("home/Library/Developer/Xcode/DerivedData/A/b", "built");
    tree.file("home/.npm/_cacache/index", "cached");
    tree.file("downloads/old.dmg", "image");
    tree.file("downloads/Exports/old.zip", "archive");
  }

  void scanWithEachFault(ScanMode mode, const std::string& folder) {
    const std::string root = tree.path(folder);
    const auto before = snapshotOf(tree.root());
    std::map<std::string, ScanCandidate> expected;
    forEachFault([&] {
      arm();
      try {
        DefaultFileScanner scanner(files, {.measuringThreads = 2,
                                           .git = GitCommand::executable(),
                                           .gitRunLimit = GitCommand::runLimit});
        const ScanResult result = scanner.scan(root, mode, now, [](const auto&...) {}, {});
        disarm();
        if (expected.empty()) {
          for (const ScanCandidate& item : result.candidates) expected[item.id()] = item;
          EXPECT_FALSE(expected.empty());
          EXPECT_TRUE(result.issues.empty());
        }
        for (const ScanCandidate& item : result.candidates) compare(item, expected[item.id()]);
      } catch (const ScannerError&) {
        disarm();
      } catch (const std::system_error& error) {
        disarm();
        EXPECT_EQ(error.code(), std::errc::too_many_files_open);
      }
      EXPECT_EQ(snapshotOf(tree.root()), before);
    });
  }

  // A fault may hide things and shrink sizes, and it may make the judgement more cautious.
  static void compare(const ScanCandidate& found, const ScanCandidate& expected) {
    EXPECT_EQ(found.url, expected.url) << "only found with the fault";
    EXPECT_EQ(found.kind, expected.kind);
    EXPECT_EQ(found.fileIdentity, expected.fileIdentity);
    EXPECT_EQ(found.category, expected.category);
    EXPECT_LE(found.size, expected.size);
    EXPECT_GE(found.safety, expected.safety);
    EXPECT_GE(found.confidence, expected.confidence);
    EXPECT_LE(found.isSelected, expected.isSelected);
    EXPECT_GE(found.gitRoot.has_value(), expected.gitRoot.has_value());
  }

  const Date now = std::chrono::system_clock::now() + std::chrono::hours(24 * 400);
};

TEST_F(ScanFaults, InProjects) { scanWithEachFault(ScanMode::project, ""); }
TEST_F(ScanFaults, InCaches) { scanWithEachFault(ScanMode::caches, "home"); }
TEST_F(ScanFaults, InDownloads) { scanWithEachFault(ScanMode::downloads, "downloads"); }

}  // namespace
}  // namespace broomtide
