#include "support/EngineTexts.h"

#include <array>
#include <cerrno>
#include <system_error>

#include "app/FolderChoice.h"
#include "cleanup/Revalidation.h"
#include "core/ScannerError.h"
#include "rules/CacheRules.h"
#include "rules/ContextPolicy.h"
#include "rules/ScanRules.h"

namespace broomtide::test {
namespace {

constexpr std::array allConfidences{DetectionConfidence::high, DetectionConfidence::medium,
                                    DetectionConfidence::low};
constexpr std::array allGitStatuses{GitItemStatus::tracked, GitItemStatus::ignored,
                                    GitItemStatus::untracked, GitItemStatus::unavailable};

// What reading and walking folders fails with.
constexpr std::array fileErrors{EACCES, EPERM,    ENOENT, ENOTDIR, EIO,
                                ELOOP,  EMFILE,   ENFILE, ENOMEM,  ENAMETOOLONG,
                                ESTALE, ENOTCONN, ENODEV, EINVAL,  EOVERFLOW};

class Texts {
 public:
  void add(std::string_view text) {
    if (!text.empty()) all_.emplace(text);
  }

  void addRule(const ScanRule& rule) {
    add(rule.category);
    add(rule.explanation);
    add(contextPolicy(rule.id).regenerationCommand);
  }

  void addTarget(const CacheTarget& target) {
    add(target.category);
    add(target.explanation);
    add(target.regenerationCommand.value_or(std::string_view()));
  }

  void addMessages() {
    using namespace CleanupMessages;
    for (const std::string_view message : {cancelled, outside, link, gone, replaced, modified,
                                           gitUnknown, tracked, notIgnored, notMoved})
      add(message);
    for (const auto failure :
         {ScannerError::Case::invalidRoot, ScannerError::Case::permissionDenied})
      add(ScannerError(failure).what());
    add(CancellationError().what());
    for (const int error : fileErrors) add(std::generic_category().message(error));
  }

  void addFolderRequest(ScanMode mode) {
    const FolderRequest request = FolderChoice::request(mode, std::nullopt);
    for (const std::string_view text : {request.title, request.prompt, request.message}) add(text);
  }

  std::set<std::string> take() { return std::move(all_); }

 private:
  std::set<std::string> all_;
};

}  // namespace

std::set<std::string> engineTexts() {
  Texts texts;
  for (const SafetyLevel level : allSafetyLevels) texts.add(title(level));
  for (const ProjectKind kind : allProjectKinds) texts.add(title(kind));
  for (const DetectionConfidence confidence : allConfidences) texts.add(title(confidence));
  for (const GitItemStatus status : allGitStatuses) texts.add(title(status));
  for (const ScanRule& rule : ScanRules::project) texts.addRule(rule);
  for (const ScanRule& rule : ScanRules::downloads) texts.addRule(rule);
  for (const CacheTarget& target : CacheRules::locations) texts.addTarget(target);
  for (const ScanMode mode : {ScanMode::project, ScanMode::downloads, ScanMode::caches})
    texts.addFolderRequest(mode);
  texts.addMessages();
  return texts.take();
}

std::set<std::string> evidenceLines() {
  ProjectContext project;
  project.kinds = {allProjectKinds.begin(), allProjectKinds.end()};
  project.manifests = {"1.2", "3.4"};
  std::set<std::string> lines;
  for (const ScanRule& rule : ScanRules::project) {
    for (const ProjectContext* context : {&project, static_cast<ProjectContext*>(nullptr)}) {
      for (const GitItemStatus status : allGitStatuses) {
        for (const bool hasRepository : {false, true}) {
          const auto judgement = ScanRules::evaluate(rule, context, status, hasRepository);
          if (judgement)
            lines.insert(judgement->evidence.lines().begin(), judgement->evidence.lines().end());
        }
      }
    }
  }
  return lines;
}

}  // namespace broomtide::test
