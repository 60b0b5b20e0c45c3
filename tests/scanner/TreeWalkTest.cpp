#include "scanner/TreeWalk.h"

#include <chrono>
#include <future>

#include "core/ServiceInterfaces.h"
#include "support/FaultyFileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using test::FaultyFileManager;
using test::TemporaryTree;

class Walking : public testing::Test {
 protected:
  ProjectDiscovery discover(std::stop_token stop = {}) {
    MeasurementPool measurements(files, openTop(), 2, stop);
    TreeWalk walk(openTop(),
                  {.root = tree.root(),
                   .mode = ScanMode::project,
                   .now = {},
                   .fileManager = files,
                   .measurements = measurements,
                   .trashes = TrashPlaces(std::nullopt),
                   .onRepository = onRepository},
                  stop);
    return walk.awaitDiscovery();
  }

  FileDescriptor openTop() {
    FileDescriptor top;
    files.openFolder(workingDirectory, tree.root().c_str(), LinkPolicy::doNotFollow, top);
    return top;
  }

  TemporaryTree tree;
  FaultyFileManager files;
  ProjectDetector::RepositoryFunction onRepository = [](const std::string&) {};
};

TEST_F(Walking, FindsProjectsAndRepositoriesDeepestFirst) {
  for (const char* path : {"package.json", "Cargo.toml", "node_modules/foo/package.json",
                           "app/App.xcodeproj/shared/go.mod", "app/Package.swift", "worktree/.git",
                           "worktree/pkg/Main.CSPROJ", "c/bb/go.mod", "c/é/go.mod"}) {
    tree.file(path);
  }
  for (const char* path : {".git/package.json", "folders/go.mod"}) tree.folder(path);
  tree.link("app", "linked");
  tree.link("package.json", "only-links/package.json");
  for (const bool hidesTypes : {false, true}) {
    files.hidesTypes = hidesTypes;
    const ProjectDiscovery discovery = discover();
    std::vector<std::string> found;
    for (const ProjectContext& project : discovery.projects) {
      std::string& line = found.emplace_back(project.root);
      for (const std::string& manifest : project.manifests) line += " [" + manifest + "]";
      line += " in " + project.gitRoot.value_or("none");
    }
    const std::string top = tree.root();
    EXPECT_THAT(found,
                testing::ElementsAre(top + "/worktree/pkg [Main.CSPROJ] in " + top + "/worktree",
                                     top + "/c/bb [go.mod] in " + top,
                                     top + "/app [App.xcodeproj] [Package.swift] in " + top,
                                     top + "/c/é [go.mod] in " + top,
                                     top + " [Cargo.toml] [package.json] in " + top));
    EXPECT_THAT(discovery.gitRoots, testing::ElementsAre(top + "/worktree", top));
    EXPECT_EQ(discovery.entriesInspected, 21);
    EXPECT_TRUE(discovery.issues.empty());
  }
}

TEST_F(Walking, EndsWhenItRunsOutOfOpenFilesOrMemory) {
  tree.folder("a");
  for (const std::errc failure :
       {std::errc::too_many_files_open, std::errc::too_many_files_open_in_system,
        std::errc::not_enough_memory}) {
    files.onOpen = [failure](const std::string& name) {
      return std::make_error_code(name == "a" ? failure : std::errc());
    };
    EXPECT_THROW(discover(), std::system_error);
  }
}

TEST_F(Walking, StopsWhenAskedTo) {
  tree.file("repo/.git/HEAD");
  tree.file("z/package.json");
  std::stop_source stopping;
  onRepository = [&](const std::string&) { stopping.request_stop(); };
  EXPECT_THROW(discover(stopping.get_token()), CancellationError);
}

}  // namespace
}  // namespace broomtide
