#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "core/Enumerations.h"

namespace broomtide::soak {

/// An item with a name that the rules know, and what has to become of it.
struct Artefact {
  CandidateKind kind = CandidateKind::directory;
  bool isOffered = true;  ///< a cache that takes no room is not, whatever is said here
  bool isMovable = true;  ///< false when its permissions or those of its folder are in the way
  GitItemStatus gitStatus = GitItemStatus::unavailable;
  std::optional<std::string> project = std::nullopt;  ///< below the scanned folder; "" for itself
  std::optional<std::string> repository = std::nullopt;  ///< the same
};

/// Permissions that a folder gets when everything has been made.
struct Lock {
  std::string path;  ///< absolute
  mode_t mode;
};

/// What was made for one round. Paths are below the scanned folder unless said otherwise.
struct Plan {
  ScanMode mode = ScanMode::project;
  std::string root;     ///< the scanned folder, an absolute path without links
  std::string scanned;  ///< an absolute path that leads there, perhaps through a link
  std::map<std::string, Artefact> artefacts;
  std::set<std::string> projects;
  std::map<std::string, std::string> ignoreFiles;  ///< of each repository, absolute paths
  std::set<std::string> closed;      ///< folders that no walk outside artefacts may enter
  std::set<std::string> unreadable;  ///< those of them that it would enter if it could
  std::vector<Lock> locks;

  std::string path(const std::string& relative) const {
    return relative.empty() ? root : root + '/' + relative;
  }
};

}  // namespace broomtide::soak
