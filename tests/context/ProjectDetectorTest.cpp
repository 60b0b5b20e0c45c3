#include "context/ProjectDetector.h"

#include "core/ScannerError.h"
#include "support/FaultyFileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using test::TemporaryTree;

ProjectDiscovery discover(const TemporaryTree& tree) {
  return ProjectDetector::discover(tree.root(), systemFileManager(), {}, [](const std::string&) {});
}

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

TEST(ProjectDetector, FindsProjectsAndRepositoriesDeepestFirst) {
  TemporaryTree tree;
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

  const ProjectDiscovery discovery = discover(tree);
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

TEST(ProjectDetector, KnowsManifestsByTheirWholeNamesOrSuffixes) {
  using enum ProjectKind;
  const std::vector<std::pair<std::string, std::optional<ProjectKind>>> cases{
      {"GEMFILE", ruby},
      {"gemfile.lock", std::nullopt},
      {"poetry.lock", python},
      {"cargo.lock", std::nullopt},
      {"main.TF", terraform},
      {"main.tf.json", std::nullopt},
      {".tf", terraform},
      {"settings.gradle.kts", java},
      {"x.sln", dotnet},
      {"a-very-long-name-of-a-project.fsproj", dotnet},
      {"a-very-long-name-that-is-no-manifest", std::nullopt},
      {"package.json5", std::nullopt},
  };
  for (const auto& [name, kind] : cases)
    EXPECT_EQ(ProjectDetector::manifestKind(name), kind) << name;
}

TEST(ProjectDetector, EndsWhenItRunsOutOfOpenFiles) {
  TemporaryTree tree;
  tree.folder("a");
  test::FaultyFileManager files;
  files.onOpen = [](const std::string& name) {
    return std::make_error_code(name == "a" ? std::errc::too_many_files_open : std::errc());
  };
  EXPECT_THROW(ProjectDetector::discover(tree.root(), files, {}, [](const std::string&) {}),
               std::system_error);
}

TEST(ProjectDetector, StopsWhenAskedTo) {
  TemporaryTree tree;
  tree.file("repo/.git/HEAD");
  tree.file("z/package.json");
  std::stop_source stopping;
  EXPECT_THROW(ProjectDetector::discover(tree.root(), systemFileManager(), stopping.get_token(),
                                         [&](const std::string&) { stopping.request_stop(); }),
               CancellationError);
}

}  // namespace
}  // namespace broomtide
