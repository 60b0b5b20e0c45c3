#include "rules/ScanRules.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/Paths.h"
#include "rules/GuardedNames.h"
#include "rules/ProjectManifests.h"
#include "rules/ScanRule.h"
#include "rules/VersionControl.h"

namespace broomtide {
namespace {

bool endsIgnoringCase(std::string_view name, std::string_view suffix) {
  return name.size() >= suffix.size() &&
         paths::equalIgnoringCase(name.substr(name.size() - suffix.size()), suffix);
}

}  // namespace

std::optional<ProjectKind> manifestKind(std::string_view name) {
  const auto found =
      std::ranges::lower_bound(manifestNames, name, paths::lessIgnoringCase, &Manifest::name);
  if (found != manifestNames.end() && paths::equalIgnoringCase(found->name, name)) {
    return found->kind;
  }
  for (const Manifest& suffix : manifestSuffixes) {
    if (endsIgnoringCase(name, suffix.name)) return suffix.kind;
  }
  return std::nullopt;
}

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

bool isGuarded(const ContentsPolicy& policy, std::string_view name, bool isAtTop) {
  if (!isSensitiveDirectory(name)) return false;
  return !std::ranges::binary_search(guardedNamesOfSources, name) ||
         (isAtTop && !policy.isNamedAsSources);
}

// Whether the tool itself writes files with this path extension.
bool isWritten(const ContentsPolicy& policy, std::string_view extension) {
  const std::size_t found =
      extension.empty() ? policy.written.npos : policy.written.find(extension);
  return found != policy.written.npos && policy.written[found - 1] == ' ' &&
         policy.written[found + extension.size()] == ' ';
}

// A judgement that can only become more cautious.
struct Judgement {
  SafetyLevel safety;
  DetectionConfidence confidence = DetectionConfidence::high;

  void distrust() {
    if (confidence == DetectionConfidence::high) confidence = DetectionConfidence::medium;
  }
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

Sign signOf(const ContentsPolicy& policy, std::string_view name, std::optional<CandidateKind> kind,
            bool isAtTop) {
  if (versionControlSystem(name) != nullptr) return Sign::repository;
  if (!kind) return Sign::none;
  const bool isFile = *kind == CandidateKind::file;
  if (policy.isEnvironment && isAtTop && isFile && name == environmentMark) {
    return Sign::environment;
  }
  if (!policy.countsFiles) return Sign::none;
  if (!isFile) return isGuarded(policy, name, isAtTop) ? Sign::guardedFolder : Sign::none;
  if (isAtTop && !policy.hasManifest && manifestKind(name)) return Sign::manifest;
  const std::string_view extension = paths::pathExtension(name);
  if (isWritten(policy, extension)) return Sign::none;
  if (isProtectedFile(name)) return Sign::protectedFile;
  const bool isSource =
      policy.countsSources &&
      std::ranges::binary_search(sourceExtensions, extension, paths::lessIgnoringCase);
  return isSource ? Sign::source : Sign::none;
}

std::vector<Message> reasonsOf(const ContentsPolicy& policy, const Contents& contents,
                               const std::string& folder) {
  std::vector<Message> reasons;
  const auto below = [&folder](std::string_view path) {
    return path.empty() ? folder : paths::appending(folder, path);
  };
  if (const std::string_view mark = contents.first(Sign::repository); !mark.empty()) {
    const std::size_t end = mark.size() - paths::lastComponent(mark).size();
    const std::string_view place = mark.substr(0, std::max<std::size_t>(end, 1) - 1);
    const VersionControlSystem* system = versionControlSystem(mark.substr(end));
    reasons.push_back({.pattern = messages::holdsRepository,
                       .values = {nameValue(std::string(system != nullptr ? system->title : "Git")),
                                  nameValue(below(place))}});
  }
  using Line = std::pair<Sign, std::string_view>;
  for (const auto& [sign, pattern] :
       {Line{Sign::protectedFile, messages::holdsProtectedFile},
        Line{Sign::guardedFolder, messages::holdsGuardedFolder},
        Line{Sign::source, messages::holdsSource}, Line{Sign::manifest, messages::holdsManifest}}) {
    const std::string_view path = contents.first(sign);
    if (!path.empty()) reasons.push_back(naming(pattern, below(path)));
  }
  if (policy.isEnvironment && contents.first(Sign::environment).empty()) {
    reasons.push_back({messages::noEnvironment});
  }
  return reasons;
}

RuleEvaluation withCaution(RuleEvaluation evaluation, std::vector<Message> reasons) {
  if (reasons.empty()) return evaluation;
  Judgement judgement{.safety = evaluation.safety, .confidence = evaluation.confidence};
  judgement.distrust();
  judgement.raiseCaution();
  std::vector<Message> evidence = evaluation.evidence.lines();
  std::ranges::move(reasons, std::back_inserter(evidence));
  evaluation.safety = judgement.safety;
  evaluation.confidence = judgement.confidence;
  evaluation.isSelected = false;
  evaluation.evidence = Evidence(std::move(evidence));
  return evaluation;
}

std::optional<RuleEvaluation> evaluate(const ScanRule& rule, const ProjectContext* context,
                                       GitItemStatus gitStatus, bool hasGitRepository,
                                       const Message* proof) {
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

  if (proof != nullptr || policy.isGenericName) {
    evidence.push_back(proof != nullptr ? *proof : Message{messages::genericName});
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
                                 : std::optional(Message{policy.regenerationCommand}),
  };
}

}  // namespace ScanRules
}  // namespace broomtide
