#include "context/ProjectDetector.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace broomtide {
namespace {

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
