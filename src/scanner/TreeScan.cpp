#include "scanner/TreeScan.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include "core/Paths.h"
#include "core/ScannerError.h"
#include "platform/FileIdentity.h"

namespace broomtide {
namespace {

constexpr std::int64_t reportInterval = 64;

}  // namespace

TreeScan::TreeScan(std::string root, ScanMode mode, Date now, FileManager& fileManager,
                   const ScannerSettings& settings, ScanReports& reports, std::stop_token stop)
    : root_(std::move(root)),
      mode_(mode),
      now_(now),
      fileManager_(fileManager),
      settings_(settings),
      stop_(std::move(stop)),
      git_(settings.git, settings.gitRunLimit, stop_),
      reports_(reports) {}

ScanOutcome TreeScan::run() {
  std::string label = "Scanning Downloads…";
  if (mode_ == ScanMode::project) {
    discovery_ = ProjectDetector::discover(root_, fileManager_, stop_,
                                           [this](const std::string& root) { git_.add(root); });
    label = "Detected " + std::to_string(discovery_.projects.size()) + " project context(s)…";
  }
  issues_ = std::move(discovery_.issues);
  entries_ = discovery_.entriesInspected;
  projects_.emplace(discovery_);
  reports_.report(entries_, 0, label);

  FileDescriptor top;
  if (fileManager_.openFolder(workingDirectory, root_.c_str(), LinkPolicy::follow, top)) {
    throw ScannerError(ScannerError::Case::permissionDenied);
  }
  walk(std::move(top));
  return {.entries = entries_,
          .bytes = 0,
          .issues = std::move(issues_),
          .projects = std::move(discovery_.projects)};
}

void TreeScan::walk(FileDescriptor top) {
  MeasurementPool measurements(fileManager_, settings_.measuringThreads, stop_);
  WalkAhead ahead(std::move(top),
                  {.root = root_,
                   .mode = mode_,
                   .now = now_,
                   .fileManager = fileManager_,
                   .projects = *projects_,
                   .measurements = measurements},
                  stop_);
  while (std::optional<WalkBatch> batch = ahead.next()) {
    for (const WalkBatch::Step& step : batch->steps()) {
      if (stop_.stop_requested()) throw CancellationError();
      visit(*batch, step);
    }
  }
  if (stop_.stop_requested()) throw CancellationError();
}

void TreeScan::visit(WalkBatch& batch, const WalkBatch::Step& step) {
  using enum WalkBatch::Kind;
  if (step.kind != folderIssue) ++entries_;
  switch (step.kind) {
    case passedOver:
      break;
    case unmatched:
      if (entries_ % reportInterval == 0) {
        reports_.report(entries_, reports_.totalBytes(), batch.relativePath(step));
      }
      break;
    case matched:
      visitMatch(batch.relativePath(step), batch.match(step));
      break;
    case entryIssue:
    case folderIssue:
      addIssue(batch.relativePath(step), batch.message(step));
      break;
  }
}

void TreeScan::visitMatch(const std::string& relativePath, WalkMatch& match) {
  const std::string location = paths::appending(root_, relativePath);
  const ProjectContext* project = match.project;
  const std::string* gitRoot = project != nullptr && project->gitRoot
                                   ? &*project->gitRoot
                                   : projects_->nearestGitRoot(location);
  GitItemStatus gitStatus = GitItemStatus::unavailable;
  std::optional<RuleEvaluation> evaluation = evaluate(match, location, gitRoot, gitStatus);
  if (!evaluation) {
    if (match.measurement) match.measurement->abandon();
    return;
  }

  const bool isFolder = match.rule->kind == CandidateKind::directory;
  const std::string label = isFolder ? "Calculating " + relativePath + "…" : relativePath;
  reports_.report(entries_, reports_.totalBytes(), label);
  if (match.error) {
    const bool hasVanished = match.error == std::errc::no_such_file_or_directory;
    addIssue(relativePath, hasVanished ? "The item disappeared while it was being scanned."
                                       : match.error.message());
    return;
  }

  const std::int64_t size = isFolder ? measure(label, match) : match.attributes.allocatedBytes;
  reports_.add({
      .url = location,
      .relativePath = relativePath,
      .kind = match.rule->kind,
      .size = size,
      .modificationDate = match.attributes.modificationDate,
      .category = std::string(match.rule->category),
      .safety = evaluation->safety,
      .explanation = std::string(match.rule->explanation),
      .fileIdentity = FileIdentity::token(match.attributes),
      .isSelected = evaluation->isSelected,
      .projectRoot = project != nullptr ? std::optional(project->root) : std::nullopt,
      .gitRoot = gitRoot != nullptr ? std::optional(*gitRoot) : std::nullopt,
      .projectKinds = project != nullptr ? project->kinds : std::set<ProjectKind>{},
      .evidence = std::move(evaluation->evidence),
      .regenerationCommand = std::move(evaluation->regenerationCommand),
      .confidence = evaluation->confidence,
      .gitStatus = gitStatus,
  });
  reports_.report(entries_, reports_.totalBytes(), relativePath);
}

std::optional<RuleEvaluation> TreeScan::evaluate(const WalkMatch& match,
                                                 const std::string& location,
                                                 const std::string* gitRoot,
                                                 GitItemStatus& gitStatus) {
  if (mode_ == ScanMode::downloads) {
    return RuleEvaluation{.safety = match.rule->safety,
                          .confidence = DetectionConfidence::high,
                          .isSelected = match.rule->selection == SelectionPolicy::selected,
                          .evidence = {"Matched the Downloads cleanup rule."},
                          .regenerationCommand = std::nullopt};
  }
  if (gitRoot != nullptr) {
    const std::shared_ptr<const GitSnapshot> snapshot = git_.snapshot(*gitRoot);
    if (stop_.stop_requested()) throw CancellationError();
    if (snapshot) {
      gitStatus = snapshot->status(location, match.rule->kind == CandidateKind::directory);
    }
  }
  return ScanRules::evaluate(*match.rule, match.project, gitStatus, gitRoot != nullptr);
}

std::int64_t TreeScan::measure(const std::string& label, WalkMatch& match) {
  const auto onProgress = [&](std::int64_t bytes, std::int64_t entries) {
    reports_.report(entries_ + entries, reports_.totalBytes() + bytes, label);
  };
  Measurement::Result result;
  if (match.measurement) result = match.measurement->await(stop_, onProgress);
  entries_ += result.entries;
  std::ranges::move(result.issues, std::back_inserter(issues_));
  return result.bytes;
}

void TreeScan::addIssue(const std::string& path, std::string message) {
  const std::string location = path.empty() ? root_ : paths::appending(root_, path);
  issues_.push_back(ScanIssue::about(location, std::move(message)));
}

}  // namespace broomtide
