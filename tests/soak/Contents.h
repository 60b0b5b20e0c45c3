#pragma once

#include <string>
#include <vector>

#include "soak/Plan.h"
#include "soak/Random.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// Makes what artefacts and folders hold. Places are paths below the tree.
class Contents {
 public:
  /// Every folder that is filled has a file by this name.
  static constexpr const char* sureName = "sure";
  /// A file outside everything that is scanned, with other names in artefacts.
  static constexpr const char* sharedPlace = "outside/shared";

  /// Everything must outlive this. Makes the shared file.
  Contents(const test::TemporaryTree& tree, Random& random, std::vector<Lock>& locks);

  /// Makes a folder with anything at all in it.
  void fill(const std::string& place) { fill(place, 0); }

  /// Makes a file of any size, now and then one with a hole.
  void fileOfItsOwn(const std::string& place);

  /// The same, or another name for the shared file.
  void file(const std::string& place);

  /// Makes a folder with things in it that take no room on a disk.
  void fillWithNothing(const std::string& place);

  /// Gives an item a date from any time, now and then.
  void setDate(const std::string& place);

  /// Has a folder get these permissions when everything has been made.
  void lock(const std::string& place, mode_t mode) { locks_.push_back({tree_.path(place), mode}); }

 private:
  void fill(const std::string& place, int depth);
  void addEntry(const std::string& place, int depth);
  void addChain(const std::string& place);
  void addMany(const std::string& place);
  void link(const std::string& place);

  const test::TemporaryTree& tree_;
  Random& random_;
  std::vector<Lock>& locks_;
};

}  // namespace broomtide::soak
