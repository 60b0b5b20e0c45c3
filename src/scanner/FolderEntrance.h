#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "context/BuildProof.h"
#include "context/FolderMarks.h"
#include "context/ProjectDetector.h"
#include "core/Enumerations.h"
#include "core/Messages.h"
#include "platform/DirectoryEnumerator.h"
#include "platform/FileManager.h"
#include "trash/TrashPlaces.h"

namespace broomtide {

/// Decides, at the first entry of each folder that a walk comes to, whether what is in it is to be
/// looked at: by what is in it and around it, whatever it is called. One object for one walk, used
/// by one thread.
class FolderEntrance {
 public:
  /// `root` is the scanned folder and `homes` are those of users, absolute paths, `root` without
  /// symlinks. What is referred to must outlive the object.
  FolderEntrance(FileManager& fileManager, ScanMode mode, const std::string& root,
                 const std::vector<std::string>& homes, const TrashPlaces& trashes,
                 ProjectDetector& projects);

  enum class Verdict {
    enter,     ///< projects and what speaks against all of the folder are known now
    passOver,  ///< something that must stay as it is: installed, in a Trash, a repository's own
    offer,     ///< a build tree or a cache as a whole; takeProof() tells
  };

  /// `entries` stands at the first entry of a folder, in the order `byName`.
  Verdict enter(const DirectoryEnumerator& entries);

  /// What proves the folder that is to be offered; to be taken once.
  BuildProof takeProof() { return *std::exchange(proof_, std::nullopt); }

 private:
  using Marks = FolderMarks;

  bool isTop() const { return entries_->folderPath().empty(); }
  std::string place() const;
  std::string_view name() const;
  std::string_view nameOfParent() const;
  bool isTrash() const;
  bool isInstalled(const Marks& marks);
  bool isGenerated(const Marks& marks);
  bool isProject() const;
  void addCautions(const Marks& marks);

  FileManager& fileManager_;
  const ScanMode mode_;
  const std::string& root_;
  const std::vector<std::string>& homes_;
  ProjectDetector& projects_;
  // What speaks against all of the scanned folder; nothing when it is not to be looked at.
  std::optional<std::vector<Message>> around_;
  const DirectoryEnumerator* entries_ = nullptr;  // of the folder that is looked at
  std::optional<BuildProof> proof_;
};

}  // namespace broomtide
