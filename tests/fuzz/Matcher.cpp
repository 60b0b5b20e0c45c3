#include <chrono>
#include <string>

#include "fuzz/Input.h"
#include "rules/ScanRules.h"

namespace broomtide::fuzz {
namespace {

using Form = ScanRule::Matcher::Form;
using OptionalDate = std::optional<Date>;

const Date now{std::chrono::sys_days{std::chrono::year(2025) / 3 / 1}};

std::string lowered(std::string_view text) {
  std::string result(text);
  for (char& byte : result)
    byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte | 0x20) : byte;
  return result;
}

std::string raised(std::string_view text) {
  std::string result(text);
  for (char& byte : result)
    byte = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte & ~0x20) : byte;
  return result;
}

bool hasExtension(const std::string& name, std::string_view extension) {
  const std::size_t dot = name.rfind('.');
  return dot != std::string::npos && dot > 0 && lowered(name.substr(dot + 1)) == extension;
}

bool recognises(const ScanRule::Matcher& matcher, const std::string& name) {
  switch (matcher.form) {
    case Form::exactName:
      return name == matcher.text;
    case Form::fileExtension:
      return hasExtension(name, matcher.text);
    case Form::compoundExtension:
      return lowered(name).ends_with('.' + std::string(matcher.text));
    case Form::prefixedFile:
      return name.starts_with(matcher.prefix) && hasExtension(name, matcher.text);
  }
  return false;
}

bool isOldEnough(const ScanRule& rule, OptionalDate date) {
  if (!rule.minimumAge) return true;
  return date && std::chrono::duration<double>(now - *date).count() >= *rule.minimumAge;
}

template <typename Table>
void checkTable(const Table& table, ScanMode mode, const std::string& name, CandidateKind kind,
                OptionalDate date) {
  const ScanRule* expected = nullptr;
  bool isRecognised = false;
  for (const ScanRule& rule : table) {
    if (rule.kind != kind || !recognises(rule.matcher, name)) continue;
    isRecognised = true;
    if (expected == nullptr && isOldEnough(rule, date)) expected = &rule;
  }
  require(ScanRules::match(name, kind, mode, date, now) == expected,
          "the first rule that accepts wins");
  require(ScanRules::recognises(name, kind, mode) == isRecognised,
          "a name is recognised when a rule of its kind does");
}

void check(const std::string& name) {
  using namespace std::chrono_literals;
  constexpr auto day = 24h;
  for (const CandidateKind kind : {CandidateKind::file, CandidateKind::directory}) {
    for (const OptionalDate date : {OptionalDate(), OptionalDate(now), OptionalDate(now - 7 * day),
                                    OptionalDate(now - 7 * day + 1s), OptionalDate(now - 30 * day),
                                    OptionalDate(now - 30 * day + 1s)}) {
      checkTable(ScanRules::project, ScanMode::project, name, kind, date);
      checkTable(ScanRules::downloads, ScanMode::downloads, name, kind, date);
    }
  }
  require(ScanRules::isKnownArtifactDirectory(name) ==
              ScanRules::recognises(name, CandidateKind::directory, ScanMode::project),
          "artefact folders are those of the project table");
  const bool isProtected = ScanRules::isProtectedFile(name);
  require(isProtected == ScanRules::isProtectedFile(lowered(name)) &&
              isProtected == ScanRules::isProtectedFile(raised(name)),
          "files are protected in any letter case");
  require(!ScanRules::isSensitiveDirectory(name) || !ScanRules::isSensitiveDirectory(raised(name)),
          "folders are sensitive in their own letter case");
}

}  // namespace
}  // namespace broomtide::fuzz

// Inputs are a name.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  broomtide::fuzz::check(std::string(broomtide::fuzz::text(data, size)));
  return 0;
}
