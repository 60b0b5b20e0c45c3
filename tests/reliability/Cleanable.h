#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "context/GitSnapshot.h"
#include "core/Records.h"
#include "platform/FileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide::test {

/// Two items to clean, a folder that a repository ignores and a file, beside what must stay.
class Cleanable {
 public:
  /// The tree must outlive it.
  explicit Cleanable(const TemporaryTree& tree);

  const std::vector<ScanCandidate>& candidates() const { return candidates_; }

  CleanupResult clean(FileManager& fileManager) const;

  /// Puts back what is in the Trash as a file manager would, from what the Trash says of it, and
  /// takes the Trash away. Returns the paths; fails the test for an item without information.
  std::set<std::string> putBack() const;

  /// Whether there is information in the Trash of an item that is not.
  bool hasStrayInformation() const;

  /// Fails the test when anything is other than at the beginning.
  void expectAsBefore() const;

 private:
  const TemporaryTree& tree_;
  std::vector<ScanCandidate> candidates_;
  std::map<std::string, GitSnapshot> snapshots_;
  std::vector<std::string> folder_, kept_, outside_;
};

}  // namespace broomtide::test
