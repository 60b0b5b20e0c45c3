#include "rules/ScanRules.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/Paths.h"
#include "rules/ContextPolicy.h"
#include "rules/GuardedNames.h"
#include "rules/RuleIndex.h"

namespace broomtide::ScanRules {
namespace {

static_assert(project.size() <= RuleIndex::most && downloads.size() <= RuleIndex::most);

const RuleIndex& indexFor(ScanMode mode) {
  static const RuleIndex projectIndex(project);
  static const RuleIndex downloadsIndex(downloads);
  return mode == ScanMode::project ? projectIndex : downloadsIndex;
}

bool isOldEnough(const ScanRule& rule, std::optional<Date> modificationDate, Date now) {
  if (!rule.minimumAge) return true;
  if (!modificationDate) return false;
  const std::chrono::duration<double> age(*rule.minimumAge);
  return *modificationDate <= now - std::chrono::round<std::chrono::nanoseconds>(age);
}

std::string projectEvidence(const ProjectContext& context) {
  std::vector<std::string_view> titles;
  for (const ProjectKind kind : context.kinds) titles.push_back(title(kind));
  std::ranges::sort(titles);

  std::string line = "Detected ";
  for (std::size_t index = 0; index < titles.size(); ++index) {
    if (index > 0) line += ", ";
    line += titles[index];
  }
  line += " project from ";
  for (std::size_t index = 0; index < context.manifests.size(); ++index) {
    if (index > 0) line += ", ";
    line += context.manifests[index];
  }
  return line + '.';
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
  return indexFor(mode).first(name, kind, [](const ScanRule&) { return true; }) != nullptr;
}

const ScanRule* match(std::string_view name, CandidateKind kind, ScanMode mode,
                      std::optional<Date> modificationDate, Date now) {
  return indexFor(mode).first(
      name, kind, [&](const ScanRule& rule) { return isOldEnough(rule, modificationDate, now); });
}

bool isKnownArtifactDirectory(std::string_view name) {
  return recognises(name, CandidateKind::directory, ScanMode::project);
}

bool isSensitiveDirectory(std::string_view name) {
  return std::ranges::binary_search(sensitiveDirectoryNames, name);
}

bool isProtectedFile(std::string_view name) {
  if (paths::equalIgnoringCase(name.substr(0, environmentFile.size()), environmentFile) &&
      (name.size() == environmentFile.size() || name[environmentFile.size()] == '.')) {
    return true;
  }
  const paths::ShortLowercase lowered(name);
  const paths::ShortLowercase extension(paths::pathExtension(name));
  return std::ranges::binary_search(protectedFileNames, lowered.text()) ||
         std::ranges::binary_search(protectedExtensions, extension.text());
}

std::optional<RuleEvaluation> evaluate(const ScanRule& rule, const ProjectContext* context,
                                       GitItemStatus gitStatus, bool hasGitRepository) {
  const ContextPolicy& policy = contextPolicy(rule.id);
  if (gitStatus == GitItemStatus::tracked || !policy.accepts(context)) return std::nullopt;

  Judgement judgement{.safety = rule.safety};
  std::vector<std::string> evidence;
  evidence.reserve(3);
  if (context != nullptr) {
    evidence.push_back(projectEvidence(*context));
  } else {
    evidence.emplace_back(
        "Recognized artifact signature, but no supported project manifest was found nearby.");
    judgement.distrust();
    judgement.raiseCaution();
  }

  if (gitStatus == GitItemStatus::ignored) {
    evidence.emplace_back("The path is ignored by Git.");
  } else if (gitStatus == GitItemStatus::untracked) {
    evidence.emplace_back("The path is untracked, but not explicitly ignored by Git.");
    judgement.distrust();
    judgement.raiseCaution();
  } else if (hasGitRepository) {
    evidence.emplace_back("Git status could not be verified.");
    judgement.distrust();
    judgement.raiseCaution();
  } else {
    evidence.emplace_back("No Git repository was detected for this project.");
  }

  if (policy.isGenericName) {
    evidence.emplace_back(
        "This is a generic artifact name, so Broomtide requires manual selection.");
    judgement.distrust();
    judgement.raiseCaution();
  } else {
    evidence.emplace_back("The artifact name and project ecosystem agree.");
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

}  // namespace broomtide::ScanRules
