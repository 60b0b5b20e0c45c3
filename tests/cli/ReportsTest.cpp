#include "cli/Reports.h"

#include <cstdlib>
#include <sstream>

namespace broomtide::cli {
namespace {

std::string textOf(const ScanReport& report, const TerminalStyle& style, Detail detail) {
  std::ostringstream text;
  writeText(text, report, style, detail);
  return text.str();
}

ScanCandidate candidate(const std::string& path, SafetyLevel safety, std::int64_t size) {
  ScanCandidate result;
  result.relativePath = path;
  result.safety = safety;
  result.size = size;
  result.category = "Cache";
  result.isSelected = safety == SafetyLevel::safe;
  return result;
}

TEST(ScanReport, ReadsAsAPersonWouldExpect) {
  const std::vector<ScanCandidate> candidates{
      candidate("a/.next", SafetyLevel::safe, 1'200'000'000),
      candidate("evil\n\x1b[31m", SafetyLevel::usuallySafe, 4096)};
  const std::vector<ScanIssue> issues{ScanIssue::about("/r/locked", "Permission denied")};
  const std::vector<ProjectContext> projects{
      {.root = "/r", .kinds = {}, .manifests = {}, .gitRoot = std::nullopt}};
  const ScanReport report{.mode = ScanMode::project,
                          .root = "/r",
                          .entriesScanned = 12,
                          .candidates = rowsOf(candidates),
                          .issues = issues,
                          .projects = projects};
  EXPECT_EQ(textOf(report, TerminalStyle(false), Detail::facts),
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
  EXPECT_THAT(textOf(report, TerminalStyle(true), Detail::reasons),
              testing::HasSubstr("\x1b[1;32mSafe to Clean"));
}

}  // namespace
}  // namespace broomtide::cli
