#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/Contents.h"
#include "core/Date.h"
#include "core/Enumerations.h"
#include "core/Messages.h"

namespace broomtide {

/// The reasons for a judgement, one line each. They never change, and copies share them, because
/// neighbouring items are mostly judged for the same reasons.
class Evidence {
 public:
  Evidence() = default;  ///< no reasons
  Evidence(std::initializer_list<Message> lines) : Evidence(std::vector(lines)) {}
  explicit Evidence(std::vector<Message> lines)
      : lines_(std::make_shared<const std::vector<Message>>(std::move(lines))) {}

  const std::vector<Message>& lines() const {
    static const std::vector<Message> none;
    return lines_ ? *lines_ : none;
  }

  bool operator==(const Evidence& other) const {
    return lines_ == other.lines_ || lines() == other.lines();
  }

 private:
  std::shared_ptr<const std::vector<Message>> lines_;
};

/// One item that a scan proposes for removal. Locations are absolute paths, as bytes. Texts that
/// come from the rules are constants, which nobody owns.
struct ScanCandidate {
  std::string url;           ///< where the item is
  std::string relativePath;  ///< its path below the scanned folder
  CandidateKind kind = CandidateKind::file;
  std::int64_t size = 0;  ///< allocated bytes on disk, summed over a directory tree
  std::optional<Date> modificationDate;
  std::string_view category;
  SafetyLevel safety = SafetyLevel::reviewFirst;
  std::string_view explanation;
  std::string fileIdentity;  ///< what must stay the same until the item is moved
  bool isSelected = false;   ///< the only field that changes after the scan
  std::optional<std::string> projectRoot;
  std::optional<std::string> gitRoot;
  /// Further repositories around it. One name stands for all those that the scanned folder lies in.
  std::vector<std::string> otherGitRoots = {};
  std::set<ProjectKind> projectKinds;
  Evidence evidence;
  std::optional<Message> regenerationCommand;
  /// What was looked for inside, null for nothing, and what was found.
  const ContentsPolicy* contentsPolicy = nullptr;
  std::uint64_t contentsFingerprint = 0;
  DetectionConfidence confidence = DetectionConfidence::low;
  GitItemStatus gitStatus = GitItemStatus::unavailable;

  /// Identifies the candidate within one scan: its relative path.
  const std::string& id() const { return relativePath; }

  bool operator==(const ScanCandidate&) const = default;
};

/// A problem that did not stop a scan.
struct ScanIssue {
  std::string id;       ///< a UUID
  std::string path;     ///< the path concerned
  std::string message;  ///< what people read

  /// An issue with a fresh identifier.
  static ScanIssue about(std::string path, std::string message);

  bool operator==(const ScanIssue&) const = default;
};

/// A project detected below the scanned folder.
struct ProjectContext {
  std::string root;  ///< the project folder, an absolute path
  std::set<ProjectKind> kinds;
  std::vector<std::string> manifests;  ///< the names that made it a project, ascending
  std::optional<std::string> gitRoot;  ///< the enclosing repository

  /// The standardised path of `root`.
  std::string id() const;
  /// The last component of `root`.
  std::string name() const;

  bool operator==(const ProjectContext&) const = default;
};

/// The totals of one project over a list of candidates.
struct ProjectReclaimSummary {
  std::string root;  ///< the project folder, an absolute path
  std::set<ProjectKind> kinds;
  std::int64_t candidateCount = 0;
  std::int64_t reclaimableBytes = 0;
  std::optional<Date> newestArtifactDate = std::nullopt;

  /// The standardised path of `root`.
  std::string id() const;

  bool operator==(const ProjectReclaimSummary&) const = default;
};

/// One candidate that a cleanup did not move.
struct CleanupFailure {
  std::string id;    ///< a UUID
  std::string path;  ///< the candidate's relative path
  Message message;   ///< the reason that people read

  bool operator==(const CleanupFailure&) const = default;
};

/// What a cleanup did with each of its candidates.
struct CleanupResult {
  std::vector<ScanCandidate> moved;  ///< what went to the Trash
  std::vector<CleanupFailure> failures;

  /// The summed size of what was moved, in bytes.
  std::int64_t movedBytes() const;

  bool operator==(const CleanupResult&) const = default;
};

/// One completed cleanup, as the history keeps it.
struct CleanupHistoryEntry {
  std::string id;        ///< a UUID
  Date date;             ///< when the cleanup finished
  std::string rootPath;  ///< the scanned folder, an absolute path
  std::int64_t movedCount = 0;
  std::int64_t movedBytes = 0;
  std::vector<CleanupFailure> failures;

  bool operator==(const CleanupHistoryEntry&) const = default;
};

}  // namespace broomtide
