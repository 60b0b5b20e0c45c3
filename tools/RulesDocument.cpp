// Writes docs/rules.md: broomtide-rules-document TEXT prints the text, which is what people are
// told of the rules, with the tables of the engine in place of each @name@.

#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "rules/CacheRules.h"
#include "rules/GuardedNames.h"
#include "rules/InstalledPlaces.h"
#include "rules/ProjectManifests.h"
#include "rules/ProvenRules.h"
#include "rules/ScanRuleTables.h"
#include "rules/VersionControl.h"

namespace broomtide {
namespace {

std::string joined(const std::vector<std::string>& parts, std::string_view between) {
  std::string line;
  for (const std::string& part : parts) {
    if (!line.empty()) line += between;
    line += part;
  }
  return line;
}

std::string code(std::string_view before, std::string_view text, std::string_view after = "") {
  return '`' + std::string(before).append(text).append(after) + '`';
}

std::string row(const std::vector<std::string>& cells) {
  return "| " + joined(cells, " | ") + " |";
}

std::string nameOf(const ScanRule& rule) {
  using enum ScanRule::Matcher::Form;
  const ScanRule::Matcher& matcher = rule.matcher;
  if (matcher.form == exactName) {
    return code("", matcher.text, rule.kind == CandidateKind::directory ? "/" : "");
  }
  return code(std::string(matcher.prefix) + "*.", matcher.text);
}

std::string placesOf(const ContextPolicy& policy) {
  std::vector<std::string> kinds;
  for (const ProjectKind kind : allProjectKinds) {
    const ProjectContext only{.root = {}, .kinds = {kind}, .manifests = {}, .gitRoot = {}};
    if (policy.accepts(&only)) kinds.emplace_back(title(kind));
  }
  if (kinds.size() == allProjectKinds.size()) kinds = {"any project"};
  if (policy.allowsWithoutProject) kinds.emplace_back("or outside");
  return joined(kinds, ", ");
}

std::string orNothing(std::string_view command) {
  return std::string(command.empty() ? "nothing to do" : command);
}

std::string projects() {
  std::vector<std::string> rows;
  for (const ScanRule& rule : ScanRules::project) {
    const ContextPolicy& policy = rule.policy;
    rows.push_back(row({nameOf(rule) + (policy.isGenericName ? " `*`" : ""),
                        std::string(rule.explanation), std::string(rule.category), placesOf(policy),
                        std::string(title(rule.safety)), orNothing(policy.regenerationCommand)}));
  }
  return joined(rows, "\n");
}

std::string manifests() {
  std::vector<std::string> rows;
  for (const ProjectKind kind : allProjectKinds) {
    std::vector<std::string> names;
    for (const Manifest& manifest : manifestNames) {
      if (manifest.kind == kind) names.push_back(code("", manifest.name));
    }
    for (const Manifest& manifest : manifestSuffixes) {
      if (manifest.kind == kind) names.push_back(code("*", manifest.name));
    }
    for (const std::string_view suffix : xcodeBundleSuffixes) {
      if (kind == ProjectKind::swift) names.push_back(code("*", suffix, "/"));
    }
    rows.push_back(row({std::string(title(kind)), joined(names, ", ")}));
  }
  return joined(rows, "\n");
}

std::string caches(const auto& targets) {
  std::vector<std::string> rows;
  rows.reserve(targets.size());
  for (const CacheTarget& target : targets) {
    rows.push_back(row(
        {code("~/", target.relativePath) + (target.expandsChildren ? " in parts" : ""),
         std::string(target.explanation), std::string(target.category),
         std::string(title(target.safety)), orNothing(target.regenerationCommand.value_or(""))}));
  }
  return joined(rows, "\n");
}

std::string downloads() {
  std::vector<std::string> rows;
  rows.reserve(ScanRules::downloads.size());
  for (const ScanRule& rule : ScanRules::downloads) {
    const auto days = static_cast<int>(rule.minimumAge.value_or(0) / 86'400);
    rows.push_back(row({nameOf(rule), std::string(rule.explanation), std::string(rule.category),
                        std::string(title(rule.safety)),
                        days == 0 ? "at once" : std::to_string(days) + " days without a change"}));
  }
  return joined(rows, "\n");
}

std::string listed(const auto& names, std::string_view before = "") {
  std::vector<std::string> all;
  all.reserve(names.size());
  for (const std::string_view name : names) all.push_back(code(before, name));
  return joined(all, ", ");
}

std::string proven() {
  std::vector<std::string> rows;
  const std::vector<std::vector<std::string>> proofs = {
      {"`CMakeCache.txt` that names a folder with `CMakeLists.txt`", "`cmake -S … -B …`"},
      {"`meson-private/coredata.dat`, and `meson-info` that names a folder with `meson.build`",
       "`meson setup … …`"},
      {"`.rustc_info.json` and `CACHEDIR.TAG`", "`cargo build --target-dir …`"},
      {"`CACHEDIR.TAG` with its signature, in a project", "nothing to do"}};
  for (std::size_t index = 0; index < proofs.size(); ++index) {
    const ScanRule& rule = *ProvenRules::all[index];
    rows.push_back(row({proofs[index][0], std::string(rule.explanation), std::string(rule.category),
                        std::string(title(rule.safety)), proofs[index][1]}));
  }
  return joined(rows, "\n");
}

std::string installed() {
  std::vector<std::string> all;
  all.reserve(installedPlaces.size());
  for (const InstalledPlace& place : installedPlaces) {
    using enum InstalledPlace::Base;
    const std::string_view base = place.base == home ? "~/" : place.base == fileSystem ? "/" : "";
    all.push_back(code(base, place.path));
  }
  return joined(all, ", ");
}

std::string stores() {
  std::vector<std::string> all;
  all.reserve(versionControlSystems.size());
  for (const VersionControlSystem& system : versionControlSystems) {
    all.push_back(code("", system.mark) + " (" + std::string(system.title) + ")");
  }
  return joined(all, ", ");
}

std::string withSources() {
  std::vector<std::string> names;
  for (const ScanRule& rule : ScanRules::project) {
    if (rule.contents.countsSources) names.push_back(nameOf(rule));
  }
  return joined(names, ", ");
}

std::string exceptions() {
  std::vector<std::string> rows;
  for (const ScanRule& rule : ScanRules::project) {
    const ContentsPolicy& contents = rule.contents;
    std::vector<std::string> parts;
    std::istringstream written{std::string(contents.written)};
    for (std::string extension; written >> extension;) parts.push_back(code(".", extension));
    if (contents.isNamedAsSources) parts.emplace_back("folders called as those of sources");
    if (contents.hasManifest) parts.emplace_back("a manifest");
    if (!parts.empty()) rows.push_back(row({nameOf(rule), joined(parts, ", ")}));
  }
  return joined(rows, "\n");
}

std::string withTables(std::istream& text) {
  const std::map<std::string, std::string> tables = {
      {"projects", projects()},
      {"manifests", manifests()},
      {"caches", caches(CacheRules::targets)},
      {"linux caches", caches(CacheRules::linuxTargets)},
      {"downloads", downloads()},
      {"sensitive folders", listed(ScanRules::sensitiveDirectoryNames)},
      {"environment file", code("", ScanRules::environmentFile)},
      {"protected files", listed(ScanRules::protectedFileNames)},
      {"protected extensions", listed(ScanRules::protectedExtensions, ".")},
      {"stores", stores()},
      {"sources' folders", listed(ScanRules::guardedNamesOfSources)},
      {"with sources", withSources()},
      {"exceptions", exceptions()},
      {"source extensions", listed(ScanRules::sourceExtensions, ".")},
      {"environment", code("", environmentMark)},
      {"conda", code("", condaMark, "/")},
      {"electron", listed(electronMarks)},
      {"proven", proven()},
      {"installed", installed()},
  };
  std::string result;
  bool isName = false;
  for (std::string part; std::getline(text, part, '@'); isName = !isName) {
    result += isName ? tables.at(part) : part;
  }
  return result;
}

}  // namespace
}  // namespace broomtide

int main(int argumentCount, char** arguments) {
  std::ifstream text(argumentCount == 2 ? arguments[1] : "");
  if (!text) return 1;
  std::cout << broomtide::withTables(text);
  return 0;
}
