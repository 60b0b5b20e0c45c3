// Prints every constant text that the engine hands to a window as a source file from which lupdate
// takes them: broomtide-engine-texts.

#include <array>
#include <cerrno>
#include <cstdio>
#include <set>
#include <string>
#include <system_error>

#include "core/Messages.h"
#include "rules/CacheRules.h"
#include "rules/ProvenRules.h"
#include "rules/ScanRules.h"

namespace broomtide {
namespace {

// What reading and walking folders fails with.
constexpr std::array fileErrors{EACCES, EPERM,    ENOENT, ENOTDIR, EIO,
                                ELOOP,  EMFILE,   ENFILE, ENOMEM,  ENAMETOOLONG,
                                ESTALE, ENOTCONN, ENODEV, EINVAL,  EOVERFLOW};

std::set<std::string> engineTexts() {
  using enum DetectionConfidence;
  using enum GitItemStatus;
  std::set<std::string> texts;
  const auto add = [&texts](const auto&... added) { (texts.emplace(added), ...); };
  for (const SafetyLevel level : allSafetyLevels) add(title(level));
  for (const ProjectKind kind : allProjectKinds) add(title(kind));
  for (const DetectionConfidence confidence : {high, medium, low}) add(title(confidence));
  for (const GitItemStatus status : {tracked, ignored, untracked, unavailable}) add(title(status));
  for (const ScanRule& rule : ScanRules::project)
    add(rule.category, rule.explanation, rule.policy.regenerationCommand);
  for (const ScanRule& rule : ScanRules::downloads) add(rule.category, rule.explanation);
  for (const ScanRule* rule : ProvenRules::all) add(rule->category, rule->explanation);
  for (const CacheTarget& target : CacheRules::locations)
    add(target.category, target.explanation, target.regenerationCommand.value_or(""));
  for (const std::string_view message : messages::all) add(message);
  for (const int error : fileErrors) add(std::generic_category().message(error));
  texts.erase("");
  return texts;
}

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') result += '\\';
    result += character;
  }
  return result + '"';
}

}  // namespace
}  // namespace broomtide

int main() {
  std::puts("const char* const texts[] = {");
  for (const std::string& text : broomtide::engineTexts()) {
    const bool hasCount = text.find("%n") != std::string::npos;
    std::printf("    %s(\"Engine\", %s),\n", hasCount ? "QT_TRANSLATE_N_NOOP" : "QT_TRANSLATE_NOOP",
                broomtide::quoted(text).c_str());
  }
  std::puts("};");
  return std::fflush(stdout) == 0 ? 0 : 1;
}
