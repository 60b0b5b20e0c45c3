#include "scanner/WalkAhead.h"

#include <random>

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

TEST_F(Walking, EndsWhenItRunsOutOfOpenFiles) {
  tree.folder("a");
  files.onOpen = [](const std::string& name) {
    return std::make_error_code(name == "a" ? std::errc::too_many_files_open : std::errc());
  };
  EXPECT_THROW(discover(), std::system_error);
}

TEST_F(Walking, StopsWhenAskedTo) {
  tree.file("repo/.git/HEAD");
  tree.file("z/package.json");
  std::stop_source stopping;
  onRepository = [&](const std::string&) { stopping.request_stop(); };
  EXPECT_THROW(discover(stopping.get_token()), CancellationError);
}

std::string describe(const WalkStep& step) {
  switch (step.kind) {
    case WalkStep::Kind::passedOver:
      return "passed over";
    case WalkStep::Kind::unmatched:
      return "unmatched " + step.relativePath();
    case WalkStep::Kind::matched:
      return "matched " + step.relativePath() + ' ' + step.match->error.message();
    case WalkStep::Kind::entryIssue:
      return "entry " + step.relativePath() + ' ' + *step.issue;
    case WalkStep::Kind::folderIssue:
      return "folder " + step.relativePath() + ' ' + *step.issue;
  }
  return {};
}

// What is read is what was written, wherever the walk went and however it was cut into batches.
TEST(WalkRecord, GivesBackEveryStep) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t end) { return random() % end; };
  WalkWriter writer;
  WalkReader reader;
  std::string folder;
  for (int batch = 0; batch < 200; ++batch) {
    std::vector<std::string> written;
    for (std::size_t step = below(20); step > 0; --step) {
      for (std::size_t up = below(4); up > 0 && !folder.empty(); --up) {
        folder.resize(std::min(folder.rfind('/'), folder.size()) % folder.size());
      }
      for (std::size_t down = below(4); down > 0; --down) {
        folder += (folder.empty() ? "" : "/") + std::string(below(5) + 1, 'a');
      }
      const std::string name(below(5) + 1, 'b');
      const std::string path = folder.empty() ? name : folder + "/" + name;
      const std::error_code error(static_cast<int>(below(100)), std::generic_category());
      switch (below(5)) {
        case 0:
          writer.addPassedOver();
          written.emplace_back("passed over");
          break;
        case 1:
          writer.addUnmatched(folder, name);
          written.push_back("unmatched " + path);
          break;
        case 2: {
          WalkMatch match;
          match.error = error;
          writer.addMatch(folder, name, match);
          written.push_back("matched " + path + ' ' + error.message());
          break;
        }
        case 3:
          writer.addEntryIssue(folder, name, error.message());
          written.push_back("entry " + path + ' ' + error.message());
          break;
        default:
          writer.addFolderIssue(path, error.message());
          written.push_back("folder " + path + ' ' + error.message());
      }
    }
    reader.begin(writer.take());
    std::vector<std::string> read;
    while (const WalkStep* step = reader.next()) read.push_back(describe(*step));
    EXPECT_EQ(read, written);
  }
}

}  // namespace
}  // namespace broomtide
