#include "soak/ScanCheck.h"

#include <algorithm>
#include <filesystem>
#include <tuple>

#include "soak/Mismatch.h"

namespace broomtide::soak {
namespace {

namespace fs = std::filesystem;

// All that a walk over what lies outside artefacts comes across.
std::int64_t countOutside(const std::string& folder, const std::string& relative,
                          const Plan& plan) {
  std::int64_t count = 0;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    ++count;
    const std::string name = entry.path().filename();
    const std::string path = relative.empty() ? name : relative + '/' + name;
    const bool isEntered =
        !entry.is_symlink() && !plan.closed.contains(path) && entry.is_directory();
    if (isEntered) count += countOutside(entry.path(), path, plan);
  }
  return count;
}

// A path as a scan tells it, which may lead through a link.
std::optional<std::string> scannedPath(const Plan& plan, const std::optional<std::string>& path) {
  if (!path || path->empty()) return path ? std::optional(plan.scanned) : std::nullopt;
  return plan.scanned + '/' + *path;
}

void checkCandidate(const ScanCandidate& found, const Plan& plan, const Measured& expected) {
  const std::string& path = found.relativePath;
  const Artefact& artefact = plan.artefacts.at(path);
  requireEqual(found.url, plan.scanned + '/' + path, "location of " + path);
  requireEqual(rawValue(found.kind), rawValue(artefact.kind), "kind of " + path);
  requireEqual(found.size, expected.bytes, "size of " + path);
  requireEqual(found.fileIdentity, expected.identity, "identity of " + path);
  require(found.modificationDate == expected.date, "date of " + path);
  requireEqual(rawValue(found.gitStatus), rawValue(artefact.gitStatus), "Git status of " + path);
  requireEqual(found.projectRoot, scannedPath(plan, artefact.project), "project of " + path);
  requireEqual(found.gitRoot, scannedPath(plan, artefact.repository), "repository of " + path);
}

void checkCandidates(const AppModel& model, const Plan& plan, const Expectation& expected) {
  std::set<std::string> missing;
  for (const auto& [path, measured] : expected.offers) missing.insert(path);
  for (const ScanCandidate& candidate : model.candidates()) {
    require(missing.erase(candidate.relativePath) == 1, "offered: " + candidate.url);
    checkCandidate(candidate, plan, expected.offers.at(candidate.relativePath));
  }
  require(missing.empty(), "not offered: " + (missing.empty() ? "" : plan.path(*missing.begin())));
  const auto order = [](const ScanCandidate& item) { return std::tuple(item.safety, -item.size); };
  require(std::ranges::is_sorted(model.candidates(), {}, order), "candidates are out of order");
}

struct Total {
  std::int64_t count = 0;
  std::int64_t bytes = 0;
  bool operator==(const Total&) const = default;
};
using Totals = std::map<std::string, Total>;  // by the root of the project

Totals totalsOf(const Plan& plan, const Expectation& expected) {
  Totals totals;
  for (const auto& [path, measured] : expected.offers) {
    const std::optional<std::string> project = scannedPath(plan, plan.artefacts.at(path).project);
    if (!project) continue;
    ++totals[*project].count;
    totals[*project].bytes += measured.bytes;
  }
  return totals;
}

void checkTotals(const AppModel& model, const Plan& plan, const Expectation& expected) {
  std::int64_t bytes = 0;
  for (const auto& [path, measured] : expected.offers) bytes += measured.bytes;
  requireEqual(model.totals().totalBytes, bytes, "bytes of all candidates");
  Totals totals;
  for (const ProjectReclaimSummary& summary : model.projectReclaimSummaries()) {
    totals[summary.root] = {summary.candidateCount, summary.reclaimableBytes};
  }
  require(totals == totalsOf(plan, expected), "the totals of the projects are wrong");
  if (plan.mode == ScanMode::caches) return;
  requireEqual(model.progress().entriesScanned, expected.entries, "entries scanned");
}

void checkRest(const AppModel& model, const Plan& plan, const Expectation& expected) {
  std::set<std::string> projects, troubles, expectedProjects;
  for (const ProjectContext& project : model.projectContexts()) projects.insert(project.root);
  for (const std::string& path : plan.projects) {
    expectedProjects.insert(scannedPath(plan, path).value());
  }
  for (const ScanIssue& issue : model.scanIssues()) {
    require(issue.path.starts_with(plan.scanned + '/'), "issue about " + issue.path);
    troubles.insert(issue.path.substr(plan.scanned.size() + 1));
  }
  requireEqual(projects, expectedProjects, "projects");
  requireEqual(troubles, expected.troubles, "items with issues");
}

}  // namespace

Expectation expectationOf(const Plan& plan) {
  Expectation expected{.offers = {}, .troubles = plan.unreadable};
  if (plan.mode != ScanMode::caches) expected.entries = countOutside(plan.root, "", plan);
  if (plan.mode == ScanMode::project) expected.entries *= 2;  // each reading counts
  for (const auto& [path, artefact] : plan.artefacts) {
    if (!artefact.isOffered) continue;
    Measured measured = measure(plan.path(path));
    expected.entries += measured.entries;
    for (const std::string& inner : measured.closed) expected.troubles.insert(path + '/' + inner);
    const bool isNothing = plan.mode == ScanMode::caches && measured.bytes < 1;
    if (!isNothing) expected.offers.emplace(path, std::move(measured));
  }
  return expected;
}

void checkScan(const AppModel& model, const Plan& plan, const Expectation& expected) {
  checkCandidates(model, plan, expected);
  checkTotals(model, plan, expected);
  checkRest(model, plan, expected);
}

}  // namespace broomtide::soak
