#include "scanner/CacheScan.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Paths.h"
#include "core/ServiceInterfaces.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/PathSafety.h"
#include "rules/CacheRules.h"
#include "rules/ScanRules.h"
#include "scanner/MeasurementPool.h"

namespace broomtide {
namespace {

// A location that is there. `resolved` is where it is without symlinks, below the resolved root.
struct CacheLocation {
  const CacheTarget* target;
  std::string location;
  std::string resolved;
};

// A folder that may become a candidate.
struct CacheItem {
  const CacheTarget* target;
  std::string location;
  std::shared_ptr<Measurement> measurement;
};

// A cache is what its place says, but a repository in it is somebody's.
constexpr ContentsPolicy repositoriesAlone{};

class CacheScan {
 public:
  CacheScan(const std::string& root, FileManager& fileManager, const ScannerSettings& settings,
            ScanReports& reports, const std::stop_token& stop)
      : root_(root),
        fileManager_(fileManager),
        stop_(stop),
        reports_(reports),
        resolvedRoot_(PathSafety::resolved(root)),
        measurements_(fileManager, openRoot(), settings.measuringThreads, stop) {}

  ScanOutcome run() {
    for (const CacheTarget& target : CacheRules::locations) {
      checkForCancellation();
      find(target);
    }
    for (const CacheLocation& found : locations_) {
      if (!holdsAnother(found)) visit(found);
    }
    measurements_.finish();
    for (const CacheItem& item : items_) report(item);
    return {
        .entries = 0, .bytes = reports_.totalBytes(), .issues = std::move(issues_), .projects = {}};
  }

 private:
  // Nothing can be opened below a root that cannot.
  FileDescriptor openRoot() const {
    FileDescriptor root;
    fileManager_.openFolder(workingDirectory, resolvedRoot_.c_str(), LinkPolicy::refuse, root);
    return root;
  }

  void find(const CacheTarget& target) {
    std::string location = paths::appending(root_, target.relativePath);
    FileAttributes attributes;
    if (fileManager_.readAttributes(workingDirectory, location.c_str(), LinkPolicy::doNotFollow,
                                    attributes) ||
        !attributes.isFolder()) {
      return;
    }
    // Opened later, by its resolved path and without symlinks, so that a symlink put in its way
    // after it was found to lie inside leads nowhere.
    std::string resolved = PathSafety::resolved(location);
    if (!paths::isBelow(resolved, resolvedRoot_)) return;
    if (!found_.insert(FileIdentity::token(attributes)).second) return;
    locations_.push_back({&target, std::move(location), std::move(resolved)});
  }

  // No row lies within another, but a symlink can put it there. The inner one says better what it
  // is, and the outer one is then no cache of its tool alone.
  bool holdsAnother(const CacheLocation& outer) const {
    return std::ranges::any_of(locations_, [&outer](const CacheLocation& inner) {
      return paths::isBelow(inner.resolved, outer.resolved);
    });
  }

  void visit(const CacheLocation& found) {
    if (found.target->expandsChildren) {
      visitChildren(found);
    } else {
      visitItem(*found.target, found.location, found.resolved);
    }
  }

  void visitChildren(const CacheLocation& found) {
    FileDescriptor folder;
    if (fileManager_.openFolder(workingDirectory, found.resolved.c_str(), LinkPolicy::refuse,
                                folder)) {
      return;
    }
    DirectoryEnumerator children(fileManager_, DirectoryEnumerator::Order::byName,
                                 [](std::string_view, std::error_code) {});
    children.begin(std::move(folder));
    while (children.next()) {
      children.skipDescendants();
      if (children.type() != EntryType::folder || children.name().starts_with('.')) continue;
      visitItem(*found.target, paths::appending(found.location, children.name()),
                paths::appending(found.resolved, children.name()));
    }
  }

  void visitItem(const CacheTarget& target, const std::string& location,
                 const std::string& resolved) {
    checkForCancellation();
    std::string path = resolved.substr(resolvedRoot_.size() + 1);
    items_.push_back(
        {&target, location, measurements_.measure(std::move(path), repositoriesAlone)});
  }

  void report(const CacheItem& item) {
    if (std::exchange(reportedTarget_, item.target) != item.target) entries_ = 0;
    const Measurement::Folder folder = item.measurement->awaitFolder(stop_);
    if (folder.error || !folder.attributes.isFolder()) return;

    const CacheTarget& target = *item.target;
    const std::string path = paths::relativePath(item.location, root_);
    const Message label = naming(messages::calculating, path);
    reports_.report(entries_, reports_.totalBytes(), label);
    if (!folder.isOpen) return;
    Measurement::Result result = item.measurement->await(
        item.location, stop_, [&](std::int64_t bytes, std::int64_t entries) {
          reports_.report(entries_ + entries, reports_.totalBytes() + bytes, label);
        });
    entries_ += result.entries;
    std::vector<Message> reasons = ScanRules::reasonsOf(repositoriesAlone, result.contents, path);
    if (!result.issues.empty()) {
      const std::string& unread = result.issues.front().path;
      reasons.push_back(naming(messages::notAllRead, paths::relativePath(unread, root_)));
    }
    std::ranges::move(result.issues, std::back_inserter(issues_));
    if (result.bytes < 1) return;

    const auto command = target.regenerationCommand
                             ? std::optional(Message{*target.regenerationCommand})
                             : std::nullopt;
    const RuleEvaluation judged = ScanRules::withCaution(
        {.safety = target.safety,
         .confidence = DetectionConfidence::high,
         .isSelected = target.safety == SafetyLevel::safe,
         .evidence = {naming(messages::cacheLocation, std::string(target.relativePath))},
         .regenerationCommand = command},
        std::move(reasons));
    reports_.add({
        .url = item.location,
        .relativePath = path,
        .kind = CandidateKind::directory,
        .size = result.bytes,
        .modificationDate = folder.attributes.modificationDate,
        .category = target.category,
        .safety = judged.safety,
        .explanation = target.explanation,
        .fileIdentity = FileIdentity::token(folder.attributes),
        .isSelected = judged.isSelected,
        .projectRoot = std::nullopt,
        .gitRoot = std::nullopt,
        .projectKinds = {},
        .evidence = judged.evidence,
        .regenerationCommand = judged.regenerationCommand,
        .contentsPolicy = &repositoriesAlone,
        .contentsFingerprint = result.contents.fingerprint(),
        .confidence = judged.confidence,
        .gitStatus = GitItemStatus::unavailable,
    });
    reports_.report(entries_, reports_.totalBytes(), bareName(path));
  }

  void checkForCancellation() const {
    if (stop_.stop_requested()) throw CancellationError();
  }

  const std::string& root_;
  FileManager& fileManager_;
  const std::stop_token& stop_;
  ScanReports& reports_;
  std::vector<ScanIssue> issues_;
  std::vector<CacheItem> items_;
  std::set<std::string> found_;  // identities: two rows can name one folder through a symlink
  std::vector<CacheLocation> locations_;
  const CacheTarget* reportedTarget_ = nullptr;
  std::int64_t entries_ = 0;  // examined below the target that is reported
  const std::string resolvedRoot_;
  MeasurementPool measurements_;
};

}  // namespace

ScanOutcome scanKnownCaches(const std::string& root, FileManager& fileManager,
                            const ScannerSettings& settings, ScanReports& reports,
                            const std::stop_token& stop) {
  return CacheScan(root, fileManager, settings, reports, stop).run();
}

}  // namespace broomtide
