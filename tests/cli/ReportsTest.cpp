// Every report as a person reads it, and with every kind of name that could make it say something
// else.

#include <unicode/uchar.h>

#include <cstdlib>
#include <regex>
#include <sstream>

#include "cli/Failure.h"
#include "cli/Reports.h"
#include "cli/TerminalText.h"
#include "core/Utf8.h"

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

const std::vector<std::string> nastyNames{
    "a\nSafe to Clean\r  1.2 GB\ttab\vand\fmore\x08\x7f" + std::string("nul\0", 4),
    "\x1b[31mred\x1b[0m\x1b]0;title\x07 \u009b31mone byte less\u0085",
    "photo\u202egpj.exe\u202c\u2066isolated\u2069\u200f\u200e\u061c",
    "line\u2028paragraph\u2029nothing\u200b\u200d\u2060\ufeff\u00ad\u3164\u2800\U000e0041",
    "quote\",\"safety\":\"safe\", \\\" {}[]:,'%s%n$(x)`",
    "\xff\xfe\xc2\xe2\x80 \xed\xa0\x80",
    "",
};

// A name everywhere where one can stand.
struct Reports {
  explicit Reports(const std::string& name) {
    ScanCandidate candidate;
    candidate.url = '/' + name;
    candidate.relativePath = name;
    candidate.category = "Cache";
    candidate.projectRoot = candidate.gitRoot = '/' + name;
    candidate.evidence = {bareName("Detected by " + name)};
    candidates = {candidate, candidate};
    failures = {{.id = "1", .path = name, .message = naming("Refused: %1", name)}};
    issues = {ScanIssue::about(name, "Refused: " + name)};
    projects = {{.root = '/' + name, .kinds = {}, .manifests = {name}, .gitRoot = '/' + name}};
    history = {{.id = "1",
                .date = Date(),
                .rootPath = '/' + name,
                .movedCount = 1,
                .movedBytes = 1,
                .failures = failures}};
    root = '/' + name;
  }

  ScanReport scan() const {
    return {ScanMode::project, root, 1, rowsOf(candidates), issues, projects};
  }
  CleanReport clean() const { return {root, false, rowsOf(candidates), failures, true}; }

  std::string text(const TerminalStyle& style) const {
    std::ostringstream out;
    writeText(out, scan(), style, Detail::reasons);
    writeText(out, clean(), style);
    writeText(out, history, style);
    testing::internal::CaptureStderr();
    fail(root, "Refused: " + root);
    fail("Refused: " + root);
    return out.str() + testing::internal::GetCapturedStderr();
  }

  std::string json() const {
    std::ostringstream out;
    writeJson(out, scan());
    writeJson(out, clean());
    writeJson(out, history);
    return out.str();
  }

  std::vector<ScanCandidate> candidates;
  std::vector<CleanupFailure> failures;
  std::vector<ScanIssue> issues;
  std::vector<ProjectContext> projects;
  std::vector<CleanupHistoryEntry> history;
  std::string root;
};

std::ptrdiff_t lines(const std::string& text) { return std::ranges::count(text, '\n'); }

// What a terminal would act on, or nobody would see.
std::vector<char32_t> actingIn(std::string_view text) {
  std::vector<char32_t> found;
  while (!text.empty()) {
    const utf8::Sequence sequence = utf8::decode(text);
    const auto character = static_cast<UChar32>(sequence.codePoint);
    const bool isActing = (u_iscntrl(character) && character != '\n') ||
                          u_charType(character) == U_FORMAT_CHAR ||
                          u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL) ||
                          u_hasBinaryProperty(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
    if (isActing || !sequence.isValid) found.push_back(sequence.codePoint);
    text.remove_prefix(sequence.length);
  }
  return found;
}

TEST(NastyNames, ForgeNoLineAndSteerNoTerminal) {
  const Reports usual("name");
  for (const std::string& name : nastyNames) {
    const Reports reports(name);
    const std::string text = reports.text(TerminalStyle(false));
    EXPECT_EQ(lines(text), lines(usual.text(TerminalStyle(false)))) << text;
    EXPECT_THAT(actingIn(text), testing::IsEmpty()) << text;
    const std::string coloured = reports.text(TerminalStyle(true));
    static const std::regex colours("\x1b\\[(0|1|2|1;3[123])m");
    EXPECT_EQ(std::regex_replace(coloured, colours, ""), text);
    const std::string json = reports.json();
    EXPECT_EQ(lines(json), lines(usual.json())) << json;
    EXPECT_THAT(actingIn(json), testing::IsEmpty()) << json;
    EXPECT_TRUE(std::ranges::all_of(json, [](char byte) { return byte > 0; })) << json;
  }
}

// Terminals that follow the direction of letters turn the name itself, as they should. A number
// that comes next would go with it, and what is a size to the eye would be part of a name.
TEST(NastyNames, NoNumberComesNextToLettersFromRightToLeft) {
  const std::string text = Reports("אבג").text(TerminalStyle(false));
  EXPECT_TRUE(std::regex_search(text, std::regex("אבג")));
  EXPECT_FALSE(std::regex_search(text, std::regex("אבג[^A-Za-z\n]*[0-9]"))) << text;
}

TEST(TerminalText, ShortensInTheMiddle) {
  EXPECT_EQ(elideMiddle("abcdef", 6), "abcdef");
  EXPECT_EQ(elideMiddle("abcdefg", 6), "abc…fg");
  EXPECT_EQ(elideMiddle("äöüäöü", 5), "äö…öü");
  EXPECT_EQ(elideMiddle("日本語の名前", 6), "日…前");
  EXPECT_EQ(elideMiddle("ab☁\ufe0fé☁\ufe0fde\u0301", 6), "ab☁\ufe0f…de\u0301");
  EXPECT_EQ(displayWidth("日本e\u0301"), 5U);
  EXPECT_EQ(elideMiddle("abc", 1), "…");
  EXPECT_EQ(elideMiddle("abc", 0), "");
}

}  // namespace
}  // namespace broomtide::cli
