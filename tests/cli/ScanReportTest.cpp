#include "cli/ScanReport.h"

#include <sstream>

#include "cli/SortOrder.h"

namespace broomtide::cli {
namespace {

std::string textOf(const ScanReport& report, const Style& style, bool hasDetails) {
  std::ostringstream text;
  writeText(text, report, style, hasDetails);
  return text.str();
}

ScanCandidate candidate(const std::string& path, SafetyLevel safety, std::int64_t size,
                        std::optional<int> day = std::nullopt) {
  ScanCandidate result;
  result.relativePath = path;
  result.safety = safety;
  result.size = size;
  result.category = "Cache";
  result.isSelected = safety == SafetyLevel::safe;
  if (day) result.modificationDate = Date(std::chrono::hours(24) * *day);
  return result;
}

TEST(ScanReport, ReadsAsAPersonWouldExpect) {
  const ScanReport report{
      .mode = ScanMode::project,
      .root = "/r",
      .entriesScanned = 12,
      .result = {.candidates = {candidate("a/.next", SafetyLevel::safe, 1'200'000'000),
                                candidate("evil\n\x1b[31m", SafetyLevel::usuallySafe, 4096)},
                 .issues = {ScanIssue::about("/r/locked", "Permission denied")},
                 .projects = {ProjectContext{
                     .root = "/r", .kinds = {}, .manifests = {}, .gitRoot = std::nullopt}}}};
  EXPECT_EQ(textOf(report, Style(false), false),
            "Safe to Clean · 1 item · 1.2 GB\n"
            "  ✓    1.2 GB  a/.next  Cache · Low confidence · Git status unavailable\n"
            "\n"
            "Usually Safe · 1 item · 4 KB\n"
            "         4 KB  evil\\n\\x1b[31m  Cache · Low confidence · Git status unavailable\n"
            "\n"
            "1 item(s) could not be read and were skipped.\n"
            "    /r/locked: Permission denied\n"
            "\n"
            "2 items · 1.2 GB · 1 project · 12 entries scanned\n"
            "✓ marks what is safe enough to be selected from the start: 1 item · 1.2 GB\n");
  EXPECT_THAT(textOf(report, Style(true), true), testing::HasSubstr("\x1b[1;32mSafe to Clean"));
}

TEST(ScanReport, SortsWithinEachSafetyLevel) {
  using enum SafetyLevel;
  std::vector<ScanCandidate> candidates{candidate("x/b10", safe, 1, 5), candidate("x/B9", safe, 9),
                                        candidate("x/a", safe, 5, 9),
                                        candidate("0", usuallySafe, 100, 1)};
  const auto order = [&](SortOrder wanted) {
    sortCandidates(candidates, wanted);
    std::string paths;
    for (const ScanCandidate& item : candidates) paths += item.relativePath + ' ';
    return paths;
  };
  EXPECT_EQ(order(SortOrder::name), "x/a x/B9 x/b10 0 ");
  EXPECT_EQ(order(SortOrder::date), "x/b10 x/a x/B9 0 ");
  EXPECT_EQ(order(SortOrder::size), "x/B9 x/a x/b10 0 ");
}

}  // namespace
}  // namespace broomtide::cli
