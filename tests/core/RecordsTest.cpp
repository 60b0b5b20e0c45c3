#include "core/RecordJson.h"
#include "core/Records.h"

namespace broomtide {
namespace {

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
