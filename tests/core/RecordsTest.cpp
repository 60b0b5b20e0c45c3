#include "core/Enumerations.h"
#include "core/RecordJson.h"
#include "core/Records.h"

namespace broomtide {
namespace {

TEST(Records, CasesHaveTheirNamesAndTitles) {
  EXPECT_EQ(rawValue(allProjectKinds.back()), "haskell");
  EXPECT_EQ(title(ProjectKind::cmake), "C / C++");
  EXPECT_EQ(title(GitItemStatus::unavailable), "Git status unavailable");
}

TEST(Records, ProjectsAreTheSameByStandardisedRoot) {
  const ProjectContext project{
      .root = "/src/tools/../app", .kinds = {}, .manifests = {}, .gitRoot = std::nullopt};
  EXPECT_EQ(project.id(), "/src/app");
  EXPECT_EQ(project.name(), "app");
  EXPECT_EQ((ProjectReclaimSummary{.root = project.root, .kinds = {}}).id(), project.id());
}

TEST(Records, JsonHasEveryFieldAndOnlyText) {
  ScanCandidate candidate;
  candidate.url = "/r/\xff";
  candidate.relativePath = "\xff";
  candidate.projectKinds = {ProjectKind::haskell, ProjectKind::javascript};
  const nlohmann::json json = toJson(candidate);
  EXPECT_EQ(json.size(), 18U);
  EXPECT_EQ(json.at("id"), "\uFFFD");
  EXPECT_EQ(json.at("url"), "file:///r/%FF");
  EXPECT_EQ(json.at("projectKinds"), nlohmann::json({"javascript", "haskell"}));
  for (const char* absent : {"modificationDate", "projectRoot", "gitRoot", "regenerationCommand"}) {
    EXPECT_TRUE(json.at(absent).is_null()) << absent;
  }
}

}  // namespace
}  // namespace broomtide
