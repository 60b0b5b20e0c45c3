#pragma once

#include <optional>
#include <string_view>

#include "core/Date.h"
#include "core/Records.h"
#include "rules/ScanRuleTables.h"

namespace broomtide {

/// The outcome of judging one matched rule.
struct RuleEvaluation {
  SafetyLevel safety;
  DetectionConfidence confidence;
  bool isSelected;
  Evidence evidence;  ///< three lines: project, Git, name
  std::optional<std::string_view> regenerationCommand;

  bool operator==(const RuleEvaluation&) const = default;
};

/// What is known about artefact names, and how a match is judged. Pure functions of their arguments
/// and the constant tables, safe on any thread.
namespace ScanRules {

/// Whether some rule of the mode's table recognises the name of an entry of this kind, whatever its
/// age.
bool recognises(std::string_view name, CandidateKind kind, ScanMode mode);

/// The first rule of the mode's table that accepts the entry, or null: the project table in project
/// mode, else the downloads table. An entry without a date never satisfies a minimum age.
const ScanRule* match(std::string_view name, CandidateKind kind, ScanMode mode,
                      std::optional<Date> modificationDate, Date now);

/// Whether a project scan must never enter folders of this name.
bool isSensitiveDirectory(std::string_view name);

/// Whether a project scan must never offer files of this name.
bool isProtectedFile(std::string_view name);

/// Judges a matched project rule. `context` is the nearest enclosing project, or null;
/// `hasGitRepository` tells whether a repository encloses the entry. Nothing means that the entry
/// must not be offered.
std::optional<RuleEvaluation> evaluate(const ScanRule& rule, const ProjectContext* context,
                                       GitItemStatus gitStatus, bool hasGitRepository);

}  // namespace ScanRules

}  // namespace broomtide
