// Prints docs/rules.md: every rule of the tables, what it takes to be offered and how to get the
// artefact back. With --check FILE, compares it with that file instead.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>

#include "rules/CacheRules.h"
#include "rules/ContextPolicy.h"
#include "rules/GuardedNames.h"
#include "rules/ProjectManifests.h"
#include "rules/ScanRuleTables.h"

namespace broomtide {
namespace {

constexpr std::string_view opening = R"(# What Broomtide looks for

<!-- Made from the tables in src/rules by scripts/document-rules. Change those, not this. -->

The safety below is where judging begins. It only ever becomes more cautious: without a project around
it, without an answer from Git, not ignored by Git, or with a name that is too common, an item that is
"Safe to Clean" becomes "Usually Safe" and is not selected from the start. What Git tracks is not
offered at all.
)";

constexpr std::string_view projectsOpening = R"(
## In a folder of projects

An artefact is offered when the nearest project around it is of the ecosystem named here. "Or outside"
means that it is offered outside any project as well. Names marked `*` are so common that they are
never selected from the start.

| name | what it is | offered in | begins as | how to get it back |
|---|---|---|---|---|
)";

constexpr std::string_view manifestsOpening = R"(
### What makes a project

A folder is a project when one of these is in it. Capital and small letters are the same, but for
Xcode's.

| ecosystem | manifests |
|---|---|
)";

constexpr std::string_view cachesOpening = R"(
## Caches of developer tools

Each location is looked for below the chosen folder, which should be a home folder. It is offered when
it is a folder that takes space and no link on the way leads out. "In parts" means that every visible
folder in it is offered on its own, and files beside them are left alone. Variables that give a tool
another folder are not looked at.
)";

constexpr std::string_view cachesHeader = R"(
| location | what it is | begins as | how to get it back |
|---|---|---|---|
)";

constexpr std::string_view downloadsOpening = R"(
## In Downloads

Neither projects nor Git count here, and nothing is selected from the start. Folders called `.git`
are not entered.

| name | what it is | begins as | offered after |
|---|---|---|---|
)";

constexpr std::string_view guardedOpening = R"(
## What a scan of projects keeps away from

Links are never followed. The user's own Trash is never entered, nor are folders called `.Trash` or
`.Trash-` and a number. Folders with these names are never entered, whatever is in them:

)";

std::string code(const std::string& text) { return '`' + text + '`'; }

std::string listed(const auto& parts) {
  std::string line;
  for (const auto& part : parts) {
    if (!line.empty()) line += ", ";
    line += part;
  }
  return line;
}

std::string nameOf(const ScanRule& rule) {
  using enum ScanRule::Matcher::Form;
  const std::string text(rule.matcher.text);
  switch (rule.matcher.form) {
    case exactName:
      return code(rule.kind == CandidateKind::directory ? text + '/' : text);
    case fileExtension:
    case compoundExtension:
      return code("*." + text);
    case prefixedFile:
      break;
  }
  return code(std::string(rule.matcher.prefix) + "*." + text);
}

std::string placesOf(const ContextPolicy& policy) {
  std::vector<std::string> kinds;
  for (const ProjectKind kind : allProjectKinds) {
    const ProjectContext only{.root = {}, .kinds = {kind}, .manifests = {}, .gitRoot = {}};
    if (policy.accepts(&only)) kinds.emplace_back(title(kind));
  }
  std::string places = kinds.size() == allProjectKinds.size() ? "any project" : listed(kinds);
  if (policy.allowsWithoutProject) places += ", or outside";
  return places;
}

std::string orNothing(std::string_view command) {
  return command.empty() ? "nothing to do" : std::string(command);
}

void printProjects(std::ostream& out) {
  out << projectsOpening;
  for (const ScanRule& rule : ScanRules::project) {
    const ContextPolicy& policy = contextPolicy(rule.id);
    out << "| " << nameOf(rule) << (policy.isGenericName ? " `*`" : "") << " | " << rule.explanation
        << " | " << placesOf(policy) << " | " << title(rule.safety) << " | "
        << orNothing(policy.regenerationCommand) << " |\n";
  }
}

void printManifests(std::ostream& out) {
  out << manifestsOpening;
  for (const ProjectKind kind : allProjectKinds) {
    std::vector<std::string> names;
    for (const Manifest& manifest : manifestNames) {
      if (manifest.kind == kind) names.push_back(code(std::string(manifest.name)));
    }
    for (const Manifest& manifest : manifestSuffixes) {
      if (manifest.kind == kind) names.push_back(code("*" + std::string(manifest.name)));
    }
    if (kind == ProjectKind::swift) {
      for (const std::string_view suffix : xcodeBundleSuffixes) {
        names.push_back(code("*" + std::string(suffix) + "/"));
      }
    }
    out << "| " << title(kind) << " | " << listed(names) << " |\n";
  }
}

void printCaches(std::ostream& out, std::string_view heading, const auto& targets) {
  out << "\n### " << heading << '\n' << cachesHeader;
  for (const CacheTarget& target : targets) {
    out << "| " << code("~/" + std::string(target.relativePath))
        << (target.expandsChildren ? " in parts" : "") << " | " << target.explanation << " | "
        << title(target.safety) << " | " << orNothing(target.regenerationCommand.value_or(""))
        << " |\n";
  }
}

void printDownloads(std::ostream& out) {
  constexpr double day = 86'400;
  out << downloadsOpening;
  for (const ScanRule& rule : ScanRules::downloads) {
    out << "| " << nameOf(rule) << " | " << rule.explanation << " | " << title(rule.safety)
        << " | ";
    if (rule.minimumAge) {
      out << *rule.minimumAge / day << " days without a change |\n";
    } else {
      out << "at once |\n";
    }
  }
}

void printNames(std::ostream& out, const auto& names, std::string_view before) {
  std::vector<std::string> all;
  for (const std::string_view name : names) all.push_back(code(std::string(before).append(name)));
  out << listed(all) << ".\n";
}

void print(std::ostream& out) {
  out << opening;
  printProjects(out);
  printManifests(out);
  out << cachesOpening;
  printCaches(out, "Everywhere, and where macOS keeps them", CacheRules::targets);
  printCaches(out, "Where Linux keeps them", CacheRules::linuxTargets);
  printDownloads(out);
  out << guardedOpening;
  printNames(out, ScanRules::sensitiveDirectoryNames, "");
  out << "\nFiles with these names are never offered on their own (inside an artefact, they go "
         "with "
         "it):\n\n"
      << code(std::string(ScanRules::environmentFile)) << " and what goes on after it with a dot, ";
  printNames(out, ScanRules::protectedFileNames, "");
  out << "\nNor are files with these extensions:\n\n";
  printNames(out, ScanRules::protectedExtensions, ".");
}

bool isCurrent(const char* path) {
  std::ostringstream expected;
  print(expected);
  std::ifstream file(path);
  return file && std::string(std::istreambuf_iterator<char>(file), {}) == expected.str();
}

}  // namespace
}  // namespace broomtide

int main(int argumentCount, char** arguments) {
  if (argumentCount == 1) {
    broomtide::print(std::cout);
    return 0;
  }
  if (argumentCount != 3 || std::string_view(arguments[1]) != "--check") {
    std::fputs("usage: broomtide-rules-document [--check FILE]\n", stderr);
    return 2;
  }
  if (broomtide::isCurrent(arguments[2])) return 0;
  std::fprintf(stderr, "%s is not what the tables say. Run scripts/document-rules.\n",
               arguments[2]);
  return 1;
}
