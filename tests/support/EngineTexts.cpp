#include "support/EngineTexts.h"

#include <array>
#include <cerrno>
#include <system_error>

#include "core/Messages.h"
#include "rules/CacheRules.h"
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
    add(rule.policy.regenerationCommand);
  }

  void addTarget(const CacheTarget& target) {
    add(target.category);
    add(target.explanation);
    add(target.regenerationCommand.value_or(std::string_view()));
  }

  void addMessages() {
    for (const std::string_view message : messages::all) add(message);
    for (const int error : fileErrors) add(std::generic_category().message(error));
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
  texts.addMessages();
  return texts.take();
}

}  // namespace broomtide::test
