#include "core/Enumerations.h"

#include <cstddef>

namespace broomtide {
namespace {

using namespace std::string_view_literals;

// Each table is indexed by the declaration order of its enumeration.
constexpr std::array scanModes{"project"sv, "downloads"sv, "caches"sv};
constexpr std::array safetyLevels{"safe"sv, "usuallySafe"sv, "reviewFirst"sv};
constexpr std::array candidateKinds{"file"sv, "directory"sv};
constexpr std::array projectKinds{
    "javascript"sv, "python"sv, "php"sv,     "ruby"sv,   "rust"sv,      "go"sv,    "java"sv,
    "dotnet"sv,     "swift"sv,  "flutter"sv, "elixir"sv, "terraform"sv, "cmake"sv, "haskell"sv};
constexpr std::array confidences{"high"sv, "medium"sv, "low"sv};
constexpr std::array gitStatuses{"tracked"sv, "ignored"sv, "untracked"sv, "unavailable"sv};

constexpr std::array safetyTitles{"Safe to Clean"sv, "Usually Safe"sv, "Review First"sv};
constexpr std::array projectTitles{"JavaScript / TypeScript"sv,
                                   "Python"sv,
                                   "PHP"sv,
                                   "Ruby"sv,
                                   "Rust"sv,
                                   "Go"sv,
                                   "Java / Kotlin"sv,
                                   ".NET"sv,
                                   "Swift / Apple"sv,
                                   "Flutter / Dart"sv,
                                   "Elixir"sv,
                                   "Terraform"sv,
                                   "C / C++"sv,
                                   "Haskell"sv};
constexpr std::array confidenceTitles{"High confidence"sv, "Medium confidence"sv,
                                      "Low confidence"sv};
constexpr std::array gitTitles{"Tracked by Git"sv, "Ignored by Git"sv, "Untracked"sv,
                               "Git status unavailable"sv};

static_assert(safetyLevels.size() == allSafetyLevels.size());
static_assert(projectKinds.size() == allProjectKinds.size());
static_assert(projectTitles.size() == allProjectKinds.size());

template <typename Enumeration, std::size_t size>
std::string_view at(const std::array<std::string_view, size>& table, Enumeration value) {
  return table.at(static_cast<std::size_t>(value));
}

}  // namespace

std::string_view rawValue(ScanMode mode) { return at(scanModes, mode); }
std::string_view rawValue(SafetyLevel level) { return at(safetyLevels, level); }
std::string_view rawValue(CandidateKind kind) { return at(candidateKinds, kind); }
std::string_view rawValue(ProjectKind kind) { return at(projectKinds, kind); }
std::string_view rawValue(DetectionConfidence confidence) { return at(confidences, confidence); }
std::string_view rawValue(GitItemStatus status) { return at(gitStatuses, status); }

std::string_view title(SafetyLevel level) { return at(safetyTitles, level); }
std::string_view title(ProjectKind kind) { return at(projectTitles, kind); }
std::string_view title(DetectionConfidence confidence) { return at(confidenceTitles, confidence); }
std::string_view title(GitItemStatus status) { return at(gitTitles, status); }

}  // namespace broomtide
