#include "rules/ScanRules.h"

#include <random>
#include <set>
#include <span>

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using enum CandidateKind;
using enum GitItemStatus;

const Date now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);

std::string ruleFor(const std::string& name, CandidateKind kind, ScanMode mode = ScanMode::project,
                    std::optional<Date> date = std::nullopt) {
  const ScanRule* rule = ScanRules::match(name, kind, mode, date, now);
  return rule == nullptr ? "" : std::string(rule->id);
}

TEST(ScanRules, MatchDownloadsByAge) {
  struct Case {
    std::string name;
    std::optional<std::chrono::nanoseconds> age;
    std::string rule;
  };
  const auto day = 24h;
  const std::vector<Case> cases{
      {"Installer.dmg", 7 * day, "dmg"},
      {"Installer.dmg", 7 * day - 1ns, ""},
      {"Setup.DMG", 8 * day, "dmg"},
      {"Installer.dmg", std::nullopt, ""},
      {"backup.TAR.GZ", 40 * day, "tar-gz"},
      {".tar.gz", 40 * day, "tar-gz"},
      {"tar.gz", 40 * day, ""},
      {"backup.tgz", 40 * day, ""},
      {"Screenshot 2024-05-01 at 09.12.33.png", 31 * day, "screenshot"},
      {"Screenshot 2024-05-01 at 09.12.33.png", 10 * day, ""},
      {"Screenshots.png", 40 * day, ""},
      {"screenshot 1.png", 40 * day, ""},
      {"Screenshot 1.PNG", 40 * day, "screenshot"},
      {"photo.png", 400 * day, ""},
      {"data.CSV", 1min, "csv"},
      {"data.csv", std::nullopt, "csv"},
      {"future.zip", -400 * day, ""},
  };
  for (const Case& item : cases) {
    const std::optional<Date> date = item.age ? std::optional(now - *item.age) : std::nullopt;
    EXPECT_EQ(ruleFor(item.name, file, ScanMode::downloads, date), item.rule) << item.name;
  }
  EXPECT_EQ(ruleFor("old.zip", file, ScanMode::downloads, Date::min()), "zip");
  EXPECT_EQ(ruleFor("old.zip", file, ScanMode::downloads, Date::max()), "");
  EXPECT_EQ(ruleFor("a.pdf", directory, ScanMode::downloads), "");
}

TEST(ScanRules, ProtectWhatCannotBeRecreated) {
  for (const char* name :
       {".env", ".ENV", ".env.local", ".Env.Production", "Cargo.lock", "PACKAGE-LOCK.JSON",
        "data.SQLite", "id.pem", "m.safetensors", "a.MobileProvision", ".terraform.lock.hcl"}) {
    EXPECT_TRUE(ScanRules::isProtectedFile(name)) << name;
  }
  for (const char* name : {"env", "x.env", ".environment", ".envrc", "Cargo.lock.bak", "a.sqlite33",
                           ".pem", "pem", "lock", "a.log", "xyarn.lock"}) {
    EXPECT_FALSE(ScanRules::isProtectedFile(name)) << name;
  }
  EXPECT_TRUE(ScanRules::isSensitiveDirectory("artifacts"));
  EXPECT_FALSE(ScanRules::isSensitiveDirectory("Artifacts"));
}

struct Judgement {
  std::string name;
  CandidateKind kind;
  std::optional<std::set<ProjectKind>> project;
  GitItemStatus status;
  bool hasRepository;
  std::string expected;  // safety confidence selected, or "no"
};

std::string judge(const Judgement& item) {
  const ProjectContext project{.root = "/p",
                               .kinds = item.project.value_or(std::set<ProjectKind>{}),
                               .manifests = {"a", "b"},
                               .gitRoot = std::nullopt};
  const ScanRule* rule =
      ScanRules::match(item.name, item.kind, ScanMode::project, std::nullopt, now);
  const auto result = ScanRules::evaluate(*rule, item.project ? &project : nullptr, item.status,
                                          item.hasRepository);
  if (!result) return "no";
  EXPECT_EQ(result->evidence.lines().size(), 3U);
  return std::string(rawValue(result->safety)) + ' ' + std::string(rawValue(result->confidence)) +
         (result->isSelected ? " selected" : "");
}

TEST(ScanRules, JudgementOnlyRaisesCaution) {
  using enum ProjectKind;
  const std::set<ProjectKind> js{javascript};
  const std::vector<Judgement> cases{
      {"node_modules", directory, js, ignored, true, "usuallySafe high"},
      {".next", directory, js, ignored, true, "safe high selected"},
      {".next", directory, js, untracked, true, "usuallySafe medium"},
      {".next", directory, js, unavailable, true, "usuallySafe medium"},
      {".next", directory, js, unavailable, false, "safe high selected"},
      {".next", directory, js, tracked, true, "no"},
      {".next", directory, std::nullopt, unavailable, false, "usuallySafe medium"},
      {".next", directory, std::nullopt, ignored, true, "usuallySafe medium"},
      {".next", directory, std::set{rust}, ignored, true, "no"},
      {".next", directory, std::set{rust, javascript}, ignored, true, "safe high selected"},
      {"target", directory, js, ignored, true, "no"},
      {"target", directory, std::set{java}, ignored, true, "usuallySafe medium"},
      {"bin", directory, std::nullopt, ignored, true, "no"},
      {"bin", directory, std::set{dotnet}, ignored, true, "safe high selected"},
      {"dist", directory, js, ignored, true, "usuallySafe medium"},
      {"dist", directory, std::nullopt, ignored, true, "no"},
      {"coverage", directory, std::set{haskell}, ignored, true, "safe high selected"},
      {".DS_Store", file, js, unavailable, false, "safe high selected"},
      {"a.log", file, js, ignored, true, "usuallySafe medium"},
  };
  for (const Judgement& item : cases) {
    EXPECT_EQ(judge(item), item.expected)
        << item.name << ' ' << rawValue(item.status) << ' ' << item.hasRepository;
  }
}

}  // namespace
}  // namespace broomtide
