#include "scanner/TreeScan.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include "context/FolderSurroundings.h"
#include "context/GitCommand.h"
#include "core/Paths.h"
#include "core/ServiceInterfaces.h"
#include "platform/PathSafety.h"
#include "rules/InstalledPlaces.h"

namespace broomtide {
namespace {

constexpr std::int64_t reportInterval = 64;

}  // namespace

TreeScan::TreeScan(std::string root, ScanMode mode, Date now, FileManager& fileManager,
                   const ScannerSettings& settings, ScanReports& reports, std::stop_token stop)
    : root_(std::move(root)),
      resolvedRoot_(PathSafety::resolved(root_)),
      mode_(mode),
      now_(now),
      fileManager_(fileManager),
      settings_(settings),
      stop_(std::move(stop)),
      git_(settings.git, settings.gitRunLimit, stop_),
      reports_(reports) {}

ScanOutcome TreeScan::run() {
  FileDescriptor top = open(workingDirectory, root_);
  FileDescriptor topOfWalk =
      open(top.get(), ".");  // the same folder, whatever is renamed meanwhile
  MeasurementPool measurements(fileManager_, std::move(top), settings_.measuringThreads, stop_);
  TreeWalk ahead(std::move(topOfWalk),
                 {.root = root_,
                  .mode = mode_,
                  .now = now_,
                  .fileManager = fileManager_,
                  .measurements = measurements,
                  .trashes = TrashPlaces(settings_.homeTrash),
                  .homes = settings_.homes,
                  .onRepository = [this](const std::string& root) { git_.add(root); }},
                 stop_);
  if (mode_ == ScanMode::project) {
    askAroundRoot();
    takeDiscovery(ahead.awaitDiscovery());
  } else {
    reports_.report(0, 0, {messages::scanningDownloads});
  }
  while (const WalkStep* step = ahead.next()) {
    if (stop_.stop_requested()) throw CancellationError();
    visit(*step);
  }
  if (stop_.stop_requested()) throw CancellationError();
  return {.entries = entries_,
          .bytes = 0,
          .issues = std::move(issues_),
          .projects = std::move(discovery_.projects)};
}

FileDescriptor TreeScan::open(int folder, const std::string& name) {
  FileDescriptor opened;
  if (fileManager_.openFolder(folder, name.c_str(), LinkPolicy::follow, opened)) {
    throw ScannerError(ScannerError::Case::permissionDenied);
  }
  return opened;
}

// What a repository tracks that the scanned folder lies in, is not offered either. Nothing else is
// asked of it: what it ignores may be a folder that is worth scanning.
void TreeScan::askAroundRoot() {
  if (GitCommand::repositoriesAround(fileManager_, PathSafety::resolved(root_)).empty()) return;
  git_.add(rootsAround_.emplace(rootsAround(root_)));
}

void TreeScan::takeDiscovery(ProjectDiscovery discovery) {
  discovery_ = std::move(discovery);
  issues_ = std::move(discovery_.issues);
  entries_ = discovery_.entriesInspected;
  reports_.report(
      entries_, 0,
      {.pattern = messages::projectsDetected, .values = {countValue(discovery_.projects.size())}});
}

void TreeScan::visit(const WalkStep& step) {
  using enum WalkStep::Kind;
  if (step.kind != folderIssue && step.kind != proven) ++entries_;
  switch (step.kind) {
    case passedOver:
      break;
    case unmatched:
      if (entries_ % reportInterval == 0) {
        reports_.report(entries_, reports_.totalBytes(), bareName(step.relativePath()));
      }
      break;
    case matched:
    case proven:
      visitMatch(step.relativePath(), *step.match);
      break;
    case entryIssue:
    case folderIssue:
      addIssue(step.relativePath(), *step.issue);
      break;
  }
}

void TreeScan::visitMatch(const std::string& relativePath, const WalkMatch& match) {
  const std::string location = paths::appending(root_, relativePath);
  const Judged around = lookAround(relativePath, location, match);
  std::optional<RuleEvaluation> evaluation = match.proof
                                                 ? judge(*match.rule, around, &match.proof->reason)
                                                 : evaluate(*match.rule, around);
  if (!evaluation) {
    if (match.measurement) match.measurement->abandon();
    return;
  }
  const bool isFolder = match.rule->kind == CandidateKind::directory;
  Measurement::Folder folder;
  if (isFolder) {
    folder = match.measurement->awaitFolder(stop_);
    if (!folder.error && !folder.attributes.isFolder()) return;
  }
  const FileAttributes& attributes = isFolder ? folder.attributes : match.attributes;
  const std::error_code error = isFolder ? folder.error : match.error;

  const Message label = naming(isFolder ? messages::calculating : messages::bare, relativePath);
  reports_.report(entries_, reports_.totalBytes(), label);
  if (error) {
    const bool hasVanished = error == std::errc::no_such_file_or_directory;
    addIssue(relativePath, hasVanished ? std::string(messages::disappeared) : error.message());
    return;
  }

  Measurement::Result measured;
  std::vector<Message> reasons;
  if (folder.isOpen) {
    const std::size_t known = issues_.size();
    measured = measure(location, label, *match.measurement);
    reasons = ScanRules::reasonsOf(match.rule->contents, measured.contents, relativePath);
    if (issues_.size() > known) {
      const std::string& unread = issues_[known].path;
      reasons.push_back(naming(messages::notAllRead, paths::relativePath(unread, root_)));
    }
  } else if (isFolder) {
    reasons = {naming(messages::notAllRead, relativePath)};
  } else {
    measured.bytes = attributes.allocatedBytes;
  }
  evaluation = ScanRules::withCaution(*std::move(evaluation), std::move(reasons));
  reports_.add({
      .url = location,
      .relativePath = relativePath,
      .kind = match.rule->kind,
      .size = measured.bytes,
      .modificationDate = attributes.modificationDate,
      .category = match.rule->category,
      .safety = evaluation->safety,
      .explanation = match.rule->explanation,
      .fileIdentity = FileIdentity::token(attributes),
      .isSelected = evaluation->isSelected,
      .projectRoot = around.project ? std::optional(around.project->root) : std::nullopt,
      .gitRoot = around.gitRoot ? std::optional(*around.gitRoot) : std::nullopt,
      .otherGitRoots = around.otherGitRoots,
      .projectKinds = around.project ? around.project->kinds : std::set<ProjectKind>{},
      .evidence = evaluation->evidence,
      .regenerationCommand = match.proof ? match.proof->command : evaluation->regenerationCommand,
      .contentsPolicy = folder.isOpen ? &match.rule->contents : nullptr,
      .contentsFingerprint = measured.contents.fingerprint(),
      .confidence = evaluation->confidence,
      .gitStatus = around.git.status,
  });
  reports_.report(entries_, reports_.totalBytes(), bareName(relativePath));
}

TreeScan::Judged TreeScan::lookAround(const std::string& relativePath, const std::string& location,
                                      const WalkMatch& match) {
  Judged judged = askGit(location, match);
  if (mode_ != ScanMode::project) return judged;
  judged.caution = match.around.caution;
  const std::string_view name = paths::lastComponent(relativePath);
  const bool isHidden = match.rule->kind == CandidateKind::directory && name.starts_with('.');
  if (isHidden) {
    std::string place = paths::appending(resolvedRoot_, relativePath);
    if (isHiddenInHome(paths::enclosingFolder(place), name, settings_.homes)) {
      judged.hiddenInHome = std::move(place);
    }
  }
  return judged;
}

TreeScan::Judged TreeScan::askGit(const std::string& location, const WalkMatch& match) {
  Judged judged{.project = match.around.project};
  const Repository* nearest = match.around.repository;
  if (judged.project != nullptr && judged.project->gitRoot) {
    judged.gitRoot = &*judged.project->gitRoot;
  } else if (nearest != nullptr) {
    judged.gitRoot = &nearest->root;
  }
  if (mode_ != ScanMode::project) return judged;
  const auto statusIn = [&](const std::string& root) {
    const std::shared_ptr<const GitSnapshot> snapshot = git_.snapshot(root);
    if (stop_.stop_requested()) throw CancellationError();
    return snapshot ? snapshot->status(location, match.rule->kind == CandidateKind::directory)
                    : GitItemStatus::unavailable;
  };
  // One more than are asked tells that there are too many.
  for (; nearest != nullptr && judged.otherGitRoots.size() <= maxOtherRepositories;
       nearest = nearest->around) {
    if (nearest->root != *judged.gitRoot) judged.otherGitRoots.push_back(nearest->root);
  }
  if (rootsAround_) judged.otherGitRoots.push_back(*rootsAround_);
  judged.git = statusAmong(judged.gitRoot, judged.otherGitRoots, statusIn);
  return judged;
}

const std::optional<RuleEvaluation>& TreeScan::evaluate(const ScanRule& rule,
                                                        const Judged& around) {
  if (judgedRule_ == &rule && judgedAround_ == around) return judgement_;
  judgedRule_ = &rule;
  judgedAround_ = around;
  judgement_ = judge(rule, around, nullptr);
  return judgement_;
}

std::optional<RuleEvaluation> TreeScan::judge(const ScanRule& rule, const Judged& around,
                                              const Message* proof) const {
  if (mode_ == ScanMode::downloads) {
    return RuleEvaluation{.safety = rule.safety,
                          .confidence = DetectionConfidence::high,
                          .isSelected = rule.selection == SelectionPolicy::selected,
                          .evidence = {Message{messages::downloadsRule}},
                          .regenerationCommand = std::nullopt};
  }
  auto evaluation =
      ScanRules::evaluate(rule, around.project, around.git.status, around.git.hasRepository, proof);
  if (!evaluation) return std::nullopt;
  return ScanRules::withCaution(*std::move(evaluation), reasonsAround(around));
}

std::vector<Message> TreeScan::reasonsAround(const Judged& around) const {
  std::vector<Message> reasons;
  // One of each kind is enough, however many folders lie around the item.
  for (const Caution* caution = around.caution; caution != nullptr; caution = caution->around) {
    const bool isTold =
        std::ranges::find(reasons, caution->reason.pattern, &Message::pattern) != reasons.end();
    if (!isTold) reasons.push_back(caution->reason);
  }
  if (!around.hiddenInHome.empty()) {
    reasons.push_back(naming(messages::insideHiddenFolder, around.hiddenInHome));
  }
  const bool isHomeProject = around.project != nullptr &&
                             isHome(PathSafety::resolved(around.project->root), settings_.homes);
  if (isHomeProject) reasons.push_back(naming(messages::projectIsHome, around.project->root));
  return reasons;
}

Measurement::Result TreeScan::measure(const std::string& location, const Message& label,
                                      Measurement& measurement) {
  const auto onProgress = [&](std::int64_t bytes, std::int64_t entries) {
    reports_.report(entries_ + entries, reports_.totalBytes() + bytes, label);
  };
  Measurement::Result result = measurement.await(location, stop_, onProgress);
  entries_ += result.entries;
  std::ranges::move(result.issues, std::back_inserter(issues_));
  return result;
}

void TreeScan::addIssue(const std::string& path, std::string message) {
  const std::string location = path.empty() ? root_ : paths::appending(root_, path);
  issues_.push_back(ScanIssue::about(location, std::move(message)));
}

}  // namespace broomtide
