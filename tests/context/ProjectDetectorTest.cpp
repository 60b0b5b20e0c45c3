#include "context/ProjectDetector.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace broomtide {
namespace {

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

TEST(ProjectDetector, KnowsTheNearestProjectAllAlongTheWay) {
  ProjectDetector detector("/r", [](const std::string&) {});
  const auto nearest = [&detector](const char* folder) {
    const ProjectContext* project = detector.around(folder).project;
    return project == nullptr ? std::string() : project->root;
  };
  detector.enterFolder("");
  EXPECT_EQ(nearest(""), "");
  detector.enterFolder("a");
  detector.addEntry("go.mod", EntryType::file);
  detector.enterFolder("a/b");
  detector.addEntry("package.json", EntryType::folder);
  EXPECT_EQ(nearest("a/b"), "/r/a");
  detector.enterFolder("a/b/c");
  detector.addEntry("package.json", EntryType::file);
  detector.addEntry("Cargo.toml", EntryType::file);
  EXPECT_EQ(nearest("a/b/c"), "/r/a/b/c");
  EXPECT_EQ(nearest("a/b"), "/r/a");  // back from what lies in it
  detector.enterFolder("a/App.xcodeproj");
  detector.addEntry("go.mod", EntryType::file);
  detector.enterFolder("a/App.xcodeproj/inner");
  detector.addEntry(".git", EntryType::folder);
  EXPECT_EQ(nearest("a/App.xcodeproj/inner"), "/r/a");
  detector.enterFolder("ab");
  EXPECT_EQ(nearest("ab"), "");

  const ProjectDiscovery discovery = detector.finish();
  ASSERT_EQ(discovery.projects.size(), 2U);
  EXPECT_EQ(discovery.projects[0].manifests,
            (std::vector<std::string>{"Cargo.toml", "package.json"}));
  EXPECT_TRUE(discovery.gitRoots.empty());
  EXPECT_EQ(discovery.entriesInspected, 4);
}

// Without its repository, what Git tracks would pass for what nobody knows.
TEST(ProjectDetector, TakesWhatCannotBeExaminedForARepository) {
  std::vector<std::string> repositories;
  ProjectDetector detector("/r", [&](const std::string& root) { repositories.push_back(root); });
  const std::error_code error = std::make_error_code(std::errc::io_error);
  detector.addIssue("", error);
  detector.enterFolder("");
  detector.enterFolder("entry");
  detector.addEntry(".git", EntryType::unreadable);
  detector.addEntry("go.mod", EntryType::unreadable);
  detector.enterFolder("linked");
  detector.addEntry(".git", EntryType::link);
  detector.enterFolder("pipe");
  detector.addEntry(".git", EntryType::other);
  detector.addIssue("never-opened", error);
  detector.addIssue("partly-read", error);
  detector.enterFolder("partly-read");
  detector.addEntry(".git", EntryType::folder);
  detector.addIssue("partly-read/App.xcodeproj", error);
  detector.enterFolder("partly-read/App.xcodeproj");

  const std::vector<std::string> expected{"/r", "/r/entry", "/r/linked", "/r/pipe",
                                          "/r/partly-read"};
  EXPECT_EQ(repositories, expected);
  const ProjectDiscovery discovery = detector.finish();
  EXPECT_EQ(discovery.gitRoots.size(), expected.size());
  EXPECT_TRUE(discovery.projects.empty());
}

}  // namespace
}  // namespace broomtide
