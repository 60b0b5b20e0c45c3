#pragma once

#include <array>
#include <string_view>

namespace broomtide {

/// What a scan looks for.
enum class ScanMode {
  project,    ///< a folder of repositories
  downloads,  ///< the Downloads folder
  caches,     ///< the well-known developer cache locations under a home folder
};

/// How safe an item is to remove, from the least to the most caution.
enum class SafetyLevel { safe, usuallySafe, reviewFirst };

/// Whether a candidate is a single file or a whole directory tree.
enum class CandidateKind { file, directory };

/// Whether a rule's match starts out selected.
enum class SelectionPolicy { selected, unselected };

/// The ecosystem of a project.
enum class ProjectKind {
  javascript,
  python,
  php,
  ruby,
  rust,
  go,
  java,
  dotnet,
  swift,
  flutter,
  elixir,
  terraform,
  cmake,
  haskell,
};

/// How sure the rules are that an item is a disposable artefact.
enum class DetectionConfidence { high, medium, low };

/// An item's standing in its Git repository; `unavailable` without a repository or an answer.
enum class GitItemStatus { tracked, ignored, untracked, unavailable };

/// Every case, in declaration order.
inline constexpr std::array allSafetyLevels{SafetyLevel::safe, SafetyLevel::usuallySafe,
                                            SafetyLevel::reviewFirst};
inline constexpr std::array allProjectKinds{
    ProjectKind::javascript, ProjectKind::python,  ProjectKind::php,    ProjectKind::ruby,
    ProjectKind::rust,       ProjectKind::go,      ProjectKind::java,   ProjectKind::dotnet,
    ProjectKind::swift,      ProjectKind::flutter, ProjectKind::elixir, ProjectKind::terraform,
    ProjectKind::cmake,      ProjectKind::haskell,
};

/// The serialised form of a case: its name as written in the declaration.
std::string_view rawValue(ScanMode mode);
std::string_view rawValue(SafetyLevel level);
std::string_view rawValue(CandidateKind kind);
std::string_view rawValue(ProjectKind kind);
std::string_view rawValue(DetectionConfidence confidence);
std::string_view rawValue(GitItemStatus status);

/// The text that people see for a case.
std::string_view title(SafetyLevel level);
std::string_view title(ProjectKind kind);
std::string_view title(DetectionConfidence confidence);
std::string_view title(GitItemStatus status);

}  // namespace broomtide
