#include "rules/ScanRules.h"

#include <algorithm>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/Paths.h"
#include "rules/GuardedNames.h"
#include "rules/ScanRule.h"

namespace broomtide {

bool ContextPolicy::accepts(const ProjectContext* context) const {
  if (context == nullptr) return allowsWithoutProject;
  return kinds == 0 || std::ranges::any_of(context->kinds, [this](ProjectKind kind) {
           return (kinds & (1U << static_cast<unsigned>(kind))) != 0;
         });
}

namespace ScanRules {
namespace {

// `extension` is the path extension of the name.
bool recognises(const ScanRule& rule, std::string_view name, std::string_view extension,
                CandidateKind kind) {
  using Form = ScanRule::Matcher::Form;
  const ScanRule::Matcher& matcher = rule.matcher;
  if (rule.kind != kind) return false;
  switch (matcher.form) {
    case Form::exactName:
      return name == matcher.text;
    case Form::fileExtension:
      return paths::equalIgnoringCase(extension, matcher.text);
    case Form::compoundExtension: {
      const std::size_t length = matcher.text.size();
      return name.size() > length && name[name.size() - length - 1] == '.' &&
             paths::equalIgnoringCase(name.substr(name.size() - length), matcher.text);
    }
    case Form::prefixedFile:
      return name.starts_with(matcher.prefix) && paths::equalIgnoringCase(extension, matcher.text);
  }
  return false;
}

// Finds the rules of a table that recognise a name. Nearly all of them name it whole and are looked
// up; the few others are tried one by one.
class RuleTable {
 public:
  explicit RuleTable(std::span<const ScanRule> rules) {
    for (const ScanRule& rule : rules) {
      if (rule.matcher.form == ScanRule::Matcher::Form::exactName) {
        byName_.emplace(rule.matcher.text, &rule);
      } else {
        others_.push_back(&rule);
      }
    }
  }

  // The first rule in table order that recognises the name and that `accept` answers true for.
  template <typename Accept>
  const ScanRule* first(std::string_view name, CandidateKind kind, Accept accept) const {
    const std::string_view extension = paths::pathExtension(name);
    const ScanRule* found = nullptr;
    const auto consider = [&](const ScanRule* rule) {
      const bool isEarlier = found == nullptr || rule < found;
      if (isEarlier && recognises(*rule, name, extension, kind) && accept(*rule)) found = rule;
    };
    if (const auto named = byName_.find(name); named != byName_.end()) consider(named->second);
    std::ranges::for_each(others_, consider);
    return found;
  }

 private:
  std::unordered_map<std::string_view, const ScanRule*> byName_;
  std::vector<const ScanRule*> others_;
};

const RuleTable& tableFor(ScanMode mode) {
  static const RuleTable projectTable(project);
  static const RuleTable downloadsTable(downloads);
  return mode == ScanMode::project ? projectTable : downloadsTable;
}

bool isOldEnough(const ScanRule& rule, std::optional<Date> modificationDate, Date now) {
  if (!rule.minimumAge) return true;
  if (!modificationDate) return false;
  const std::chrono::duration<double> age(*rule.minimumAge);
  return *modificationDate <= now - std::chrono::round<std::chrono::nanoseconds>(age);
}

Message projectEvidence(const ProjectContext& context) {
  std::vector<std::string> titles;
  for (const ProjectKind kind : context.kinds) titles.emplace_back(title(kind));
  std::ranges::sort(titles);
  return {.pattern = messages::projectDetected,
          .values = {termsValue(std::move(titles)), namesValue(context.manifests)}};
}

// A judgement that can only become more cautious.
struct Judgement {
  SafetyLevel safety;
  DetectionConfidence confidence = DetectionConfidence::high;

  void distrust() { confidence = DetectionConfidence::medium; }
  void raiseCaution() {
    if (safety == SafetyLevel::safe) safety = SafetyLevel::usuallySafe;
  }
};

}  // namespace

bool recognises(std::string_view name, CandidateKind kind, ScanMode mode) {
  return tableFor(mode).first(name, kind, [](const ScanRule&) { return true; }) != nullptr;
}

const ScanRule* match(std::string_view name, CandidateKind kind, ScanMode mode,
                      std::optional<Date> modificationDate, Date now) {
  return tableFor(mode).first(
      name, kind, [&](const ScanRule& rule) { return isOldEnough(rule, modificationDate, now); });
}

bool isSensitiveDirectory(std::string_view name) {
  return std::ranges::binary_search(sensitiveDirectoryNames, name);
}

bool isProtectedFile(std::string_view name) {
  if (paths::equalIgnoringCase(name.substr(0, environmentFile.size()), environmentFile) &&
      (name.size() == environmentFile.size() || name[environmentFile.size()] == '.')) {
    return true;
  }
  return std::ranges::binary_search(protectedFileNames, name, paths::lessIgnoringCase) ||
         std::ranges::binary_search(protectedExtensions, paths::pathExtension(name),
                                    paths::lessIgnoringCase);
}

std::optional<RuleEvaluation> evaluate(const ScanRule& rule, const ProjectContext* context,
                                       GitItemStatus gitStatus, bool hasGitRepository) {
  const ContextPolicy& policy = rule.policy;
  if (gitStatus == GitItemStatus::tracked || !policy.accepts(context)) return std::nullopt;

  Judgement judgement{.safety = rule.safety};
  std::vector<Message> evidence;
  evidence.reserve(3);
  if (context != nullptr) {
    evidence.push_back(projectEvidence(*context));
  } else {
    evidence.push_back({messages::noProject});
    judgement.distrust();
    judgement.raiseCaution();
  }

  if (gitStatus == GitItemStatus::ignored) {
    evidence.push_back({messages::ignoredByGit});
  } else if (gitStatus == GitItemStatus::untracked) {
    evidence.push_back({messages::untrackedByGit});
    judgement.distrust();
    judgement.raiseCaution();
  } else if (hasGitRepository) {
    evidence.push_back({messages::gitUnverified});
    judgement.distrust();
    judgement.raiseCaution();
  } else {
    evidence.push_back({messages::noRepository});
  }

  if (policy.isGenericName) {
    evidence.push_back({messages::genericName});
    judgement.distrust();
    judgement.raiseCaution();
  } else {
    evidence.push_back({messages::nameAgrees});
  }

  return RuleEvaluation{
      .safety = judgement.safety,
      .confidence = judgement.confidence,
      .isSelected = judgement.safety == SafetyLevel::safe &&
                    judgement.confidence == DetectionConfidence::high &&
                    (gitStatus == GitItemStatus::ignored || !hasGitRepository),
      .evidence = Evidence(std::move(evidence)),
      .regenerationCommand = policy.regenerationCommand.empty()
                                 ? std::nullopt
                                 : std::optional(policy.regenerationCommand),
  };
}

}  // namespace ScanRules
}  // namespace broomtide
