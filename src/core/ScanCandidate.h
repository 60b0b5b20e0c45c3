#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "core/Date.h"
#include "core/Enumerations.h"
#include "core/Evidence.h"

namespace broomtide {

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
  /// Further repositories around it. The scanned folder stands for one that it lies in.
  std::vector<std::string> otherGitRoots = {};
  std::set<ProjectKind> projectKinds;
  Evidence evidence;
  std::optional<std::string_view> regenerationCommand;
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

}  // namespace broomtide
