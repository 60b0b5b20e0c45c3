#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/Date.h"
#include "core/Enumerations.h"

namespace broomtide {

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

}  // namespace broomtide
