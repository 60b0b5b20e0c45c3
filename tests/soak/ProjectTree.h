#pragma once

#include <memory>
#include <optional>
#include <string>

#include "soak/Contents.h"
#include "soak/Ecosystems.h"
#include "soak/Plan.h"
#include "soak/Random.h"
#include "soak/Repository.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// Makes a folder of projects: of several kinds, inside each other, some in repositories, with
/// artefacts that are ignored, tracked and neither, and with items that only look like artefacts.
class ProjectTree {
 public:
  /// Everything must outlive this. `name` is the scanned folder's in the tree.
  ProjectTree(const test::TemporaryTree& tree, const std::string& name, Plan& plan, Random& random,
              Contents& contents)
      : tree_(tree), name_(name), plan_(plan), random_(random), contents_(contents) {}

  void build() { addFolder(name_, {}, 0); }

 private:
  // What the artefacts of a folder are judged by.
  struct Surroundings {
    const Ecosystem* ecosystem = nullptr;
    std::optional<std::string> project;  // its place
    std::shared_ptr<Repository> repository;
    bool isReadOnly = false;
  };

  void addFolder(const std::string& place, Surroundings around, int depth);
  void addManifest(const std::string& place, Surroundings& around);
  void addRepository(const std::string& place, Surroundings& around);
  void addArtefacts(const std::string& place, const Surroundings& around);
  void addFolders(const std::string& place, const Surroundings& around);
  void addArtefact(const std::string& place, CandidateKind kind, bool isKnownHere,
                   const Surroundings& around);
  Artefact planned(const std::string& place, CandidateKind kind, bool isKnownHere,
                   const Surroundings& around);
  void makeArtefact(const std::string& place, Artefact& artefact);
  void addLookalikes(const std::string& place);
  void addUnreadable(const std::string& place);
  std::string relative(const std::string& place) const;

  const test::TemporaryTree& tree_;
  const std::string name_;
  Plan& plan_;
  Random& random_;
  Contents& contents_;
};

}  // namespace broomtide::soak
