#include "scanner/CacheScan.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Paths.h"
#include "core/ScannerError.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/FileIdentity.h"
#include "platform/PathSafety.h"
#include "rules/CacheRules.h"
#include "scanner/MeasurementPool.h"

namespace broomtide {
namespace {

// How many folders are opened and measured ahead of the one that is reported.
constexpr std::size_t mostAhead = 16;

// A folder that may become a candidate.
struct CacheItem {
  const CacheTarget* target;
  std::string location;
  FileAttributes attributes;
  std::shared_ptr<Measurement> measurement;  // null when the folder cannot be opened
};

class CacheScan {
 public:
  CacheScan(const std::string& root, FileManager& fileManager, const ScannerSettings& settings,
            ScanReports& reports, const std::stop_token& stop)
      : root_(root),
        fileManager_(fileManager),
        stop_(stop),
        reports_(reports),
        measurements_(fileManager, settings.measuringThreads, stop) {}

  ScanOutcome run() {
    for (const CacheTarget& target : CacheRules::targets) {
      checkForCancellation();
      visit(target);
    }
    while (!ahead_.empty()) reportFirst();
    return {
        .entries = 0, .bytes = reports_.totalBytes(), .issues = std::move(issues_), .projects = {}};
  }

 private:
  void visit(const CacheTarget& target) {
    const std::string location = paths::appending(root_, target.relativePath);
    FileAttributes attributes;
    if (fileManager_.readAttributes(workingDirectory, location.c_str(), LinkPolicy::doNotFollow,
                                    attributes) ||
        !attributes.isFolder()) {
      return;
    }
    // Opened by its resolved path and without links, so that a link put in its way after it was
    // found to lie inside leads nowhere.
    const std::string resolved = PathSafety::resolved(location);
    if (!paths::isBelow(resolved, PathSafety::resolved(root_))) return;
    FileDescriptor folder;
    const bool isOpen =
        !fileManager_.openFolder(workingDirectory, resolved.c_str(), LinkPolicy::refuse, folder);
    if (!target.expandsChildren) {
      visitItem(target, location, std::move(folder), attributes);
    } else if (isOpen) {
      visitChildren(target, location, std::move(folder));
    }
  }

  void visitChildren(const CacheTarget& target, const std::string& location,
                     FileDescriptor folder) {
    DirectoryEnumerator children(fileManager_, DirectoryEnumerator::Order::byName,
                                 [](std::string_view, std::error_code) {});
    children.begin(std::move(folder));
    while (children.next()) {
      children.skipDescendants();
      if (children.type() != EntryType::folder || children.name().starts_with('.')) continue;
      FileDescriptor child;
      FileAttributes attributes;
      children.open(child);
      if (children.readAttributes(attributes) || !attributes.isFolder()) continue;
      visitItem(target, paths::appending(location, children.name()), std::move(child), attributes);
    }
  }

  void visitItem(const CacheTarget& target, std::string location, FileDescriptor folder,
                 FileAttributes attributes) {
    checkForCancellation();
    std::shared_ptr<Measurement> measurement;
    if (folder.isOpen()) {
      // What is measured is what was opened, which may have changed since it was found.
      if (fileManager_.readAttributes(folder.get(), "", LinkPolicy::doNotFollow, attributes)) {
        return;
      }
      measurement = measurements_.measure(std::move(folder), location);
      measurements_.start(stop_);
    }
    ahead_.push_back({&target, std::move(location), attributes, std::move(measurement)});
    if (ahead_.size() > mostAhead) reportFirst();
  }

  void reportFirst() {
    const CacheItem item = std::move(ahead_.front());
    ahead_.pop_front();
    if (std::exchange(reportedTarget_, item.target) != item.target) entries_ = 0;

    const CacheTarget& target = *item.target;
    const std::string path = paths::relativePath(item.location, root_);
    const std::string label = "Calculating " + path + "…";
    reports_.report(entries_, reports_.totalBytes(), label);
    Measurement::Result result;
    if (item.measurement) {
      result = item.measurement->await(stop_, [&](std::int64_t bytes, std::int64_t entries) {
        reports_.report(entries_ + entries, reports_.totalBytes() + bytes, label);
      });
    }
    entries_ += result.entries;
    std::ranges::move(result.issues, std::back_inserter(issues_));
    if (result.bytes < 1) return;

    reports_.add({
        .url = item.location,
        .relativePath = path,
        .kind = CandidateKind::directory,
        .size = result.bytes,
        .modificationDate = item.attributes.modificationDate,
        .category = std::string(target.category),
        .safety = target.safety,
        .explanation = std::string(target.explanation),
        .fileIdentity = FileIdentity::token(item.attributes),
        .isSelected = target.safety == SafetyLevel::safe,
        .projectRoot = std::nullopt,
        .gitRoot = std::nullopt,
        .projectKinds = {},
        .evidence = {"Well-known developer cache location (~/" + std::string(target.relativePath) +
                     ")."},
        .regenerationCommand = target.regenerationCommand
                                   ? std::optional<std::string>(*target.regenerationCommand)
                                   : std::nullopt,
        .confidence = DetectionConfidence::high,
        .gitStatus = GitItemStatus::unavailable,
    });
    reports_.report(entries_, reports_.totalBytes(), path);
  }

  void checkForCancellation() const {
    if (stop_.stop_requested()) throw CancellationError();
  }

  const std::string& root_;
  FileManager& fileManager_;
  const std::stop_token& stop_;
  ScanReports& reports_;
  std::vector<ScanIssue> issues_;
  std::deque<CacheItem> ahead_;
  const CacheTarget* reportedTarget_ = nullptr;
  std::int64_t entries_ = 0;  // examined below the target that is reported
  MeasurementPool measurements_;
};

}  // namespace

ScanOutcome scanKnownCaches(const std::string& root, FileManager& fileManager,
                            const ScannerSettings& settings, ScanReports& reports,
                            const std::stop_token& stop) {
  return CacheScan(root, fileManager, settings, reports, stop).run();
}

}  // namespace broomtide
