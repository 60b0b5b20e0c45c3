#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Contents.h"
#include "core/Date.h"
#include "core/Records.h"
#include "rules/ScanRuleTables.h"

namespace broomtide {

/// The outcome of judging one matched rule.
struct RuleEvaluation {
  SafetyLevel safety;
  DetectionConfidence confidence;
  bool isSelected;
  Evidence evidence;  ///< project, Git and name or proof, and what speaks against the item
  std::optional<Message> regenerationCommand;

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

/// What an entry below a folder says about it, by the entry's name. `kind` is nothing for a symlink
/// and the like; `isAtTop` tells that the entry lies in the folder itself.
Sign signOf(const ContentsPolicy& policy, std::string_view name, std::optional<CandidateKind> kind,
            bool isAtTop);

/// The line of evidence for each sign that counts; paths are shown below `folder`. None when the
/// folder looks like what it is called.
std::vector<Message> reasonsOf(const ContentsPolicy& policy, const Contents& contents,
                               const std::string& folder);

/// The judgement when further reasons speak against an item: never preselected, at most usually
/// safe and medium. Each reason is a further line of evidence; without any, nothing changes.
RuleEvaluation withCaution(RuleEvaluation evaluation, std::vector<Message> reasons);

/// Judges a matched project rule. `context` is the nearest enclosing project, or null;
/// `hasGitRepository` tells whether a repository encloses the entry. Nothing means that the entry
/// must not be offered. What was recognised by what is in it has a proof in place of a name.
std::optional<RuleEvaluation> evaluate(const ScanRule& rule, const ProjectContext* context,
                                       GitItemStatus gitStatus, bool hasGitRepository,
                                       const Message* proof = nullptr);

}  // namespace ScanRules

}  // namespace broomtide
