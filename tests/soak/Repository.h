#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "soak/Random.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// A Git repository in the tree, which ignores some artefacts by their names and tracks what it is
/// told to. Places are paths below the tree, which must outlive it.
class Repository {
 public:
  /// Makes one of a folder and tracks what is in it by now.
  Repository(const test::TemporaryTree& tree, std::string place, Random& random);

  const std::string& place() const { return place_; }
  /// The file that says what is ignored, an absolute path.
  const std::string& ignoreFile() const { return ignoreFile_; }

  /// Whether it ignores an artefact by this name.
  bool ignores(const std::string& name) const;

  /// Has a file tracked, ignored or not, with the next addTracked().
  void track(const std::string& place) { tracked_.push_back(place.substr(place_.size() + 1)); }
  void addTracked();

 private:
  const test::TemporaryTree& tree_;
  const std::string place_;
  std::set<std::string_view> ignored_;  // names, and one pattern
  std::string ignoreFile_;
  std::vector<std::string> tracked_;  // paths below the repository
};

}  // namespace broomtide::soak
