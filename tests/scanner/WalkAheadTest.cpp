#include "scanner/WalkAhead.h"

#include <chrono>
#include <future>

#include "core/ScannerError.h"
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
    WalkAhead walk(openTop(),
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

// "path: kind kind [manifest manifest] in repository", paths relative to the root.
std::vector<std::string> describe(const ProjectDiscovery& discovery, const std::string& root) {
  const auto relative = [&root](const std::string& path) {
    return path == root ? "." : path.substr(root.size() + 1);
  };
  std::vector<std::string> lines;
  for (const ProjectContext& project : discovery.projects) {
    std::string line = relative(project.root) + ":";
    for (const ProjectKind kind : project.kinds) line += ' ' + std::string(rawValue(kind));
    for (const std::string& manifest : project.manifests) line += " [" + manifest + "]";
    if (project.gitRoot) line += " in " + relative(*project.gitRoot);
    lines.push_back(line);
  }
  return lines;
}

TEST_F(Walking, FindsProjectsAndRepositoriesDeepestFirst) {
  tree.file("package.json");
  tree.file("Cargo.toml");
  tree.file("CARGO.LOCK");
  tree.file("node_modules/foo/package.json");
  tree.file("data/go.mod");
  tree.file("app/App.xcodeproj/inner/Package.swift");
  tree.file("app/Package.swift");
  tree.folder("app/x.XCODEPROJ");
  tree.file("worktree/.git", "gitdir: elsewhere");
  tree.file("worktree/pkg/Main.CSPROJ");
  tree.file("worktree/pkg/.terraform.lock.hcl");
  tree.folder(".git/package.json");
  tree.link("app", "linked");
  tree.link("package.json", "only-links/package.json");
  tree.folder("folders/go.mod");
  tree.file("c/bb/go.mod");
  tree.file("c/é/go.mod");

  for (const bool hidesTypes : {false, true}) {
    files.hidesTypes = hidesTypes;
    const ProjectDiscovery discovery = discover();
    EXPECT_EQ(describe(discovery, tree.root()),
              (std::vector<std::string>{
                  "worktree/pkg: dotnet [Main.CSPROJ] in worktree",
                  "c/bb: go [go.mod] in .",
                  "app: swift [App.xcodeproj] [Package.swift] in .",
                  "c/é: go [go.mod] in .",
                  ".: javascript rust [Cargo.toml] [package.json] in .",
              }));
    EXPECT_EQ(discovery.gitRoots, (std::vector{tree.path("worktree"), tree.root()}));
    EXPECT_EQ(discovery.entriesInspected, 25);
    EXPECT_TRUE(discovery.issues.empty());
  }
}

TEST_F(Walking, LooksForNoProjectsInBundles) {
  for (const char* path :
       {"App.xcodeproj/project.xcworkspace/x", "App.xcodeproj/shared/go.mod", "App.xcodeproj/x/y",
        "App.xcworkspace/shared/package.json", "App.xcworkspace/shared/.git/HEAD", "src/x"}) {
    tree.file(path);
  }
  files.onOpen = [](const std::string& name) {
    const bool isClosed = name == "x" || name == "src";
    return std::make_error_code(isClosed ? std::errc::permission_denied : std::errc());
  };
  const ProjectDiscovery discovery = discover();
  EXPECT_EQ(describe(discovery, tree.root()),
            std::vector<std::string>{".: swift [App.xcodeproj] [App.xcworkspace]"});
  EXPECT_TRUE(discovery.gitRoots.empty());
  EXPECT_EQ(discovery.entriesInspected, 3);
  ASSERT_EQ(discovery.issues.size(), 1U);
  EXPECT_EQ(discovery.issues[0].path, tree.path("src"));
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

// The last folder is not read before one that was matched earlier is being measured.
TEST_F(Walking, HasFoldersMeasuredWhileItGoesOn) {
  tree.file("package.json");
  for (int number = 100; number < 500; ++number) {
    tree.folder(std::to_string(number) + "/node_modules");
  }
  tree.folder("last");
  std::promise<void> isMeasured;
  const std::shared_future<void> measured = isMeasured.get_future().share();
  files.onOpen = [&](const std::string& name) {
    if (name == "100/node_modules") isMeasured.set_value();
    if (name == "last") {
      EXPECT_EQ(measured.wait_for(std::chrono::seconds(20)), std::future_status::ready);
    }
    return std::error_code();
  };
  discover();
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
