#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "context/FolderMarks.h"
#include "core/Messages.h"
#include "platform/FileManager.h"
#include "rules/ScanRule.h"

namespace broomtide {

/// That a folder was made by a build or is a cache, by what is in it. Nothing here is believed for
/// more than an offer: who finds a folder with such files in it may have written them by hand.
struct BuildProof {
  const ScanRule* rule;            ///< what it counts as
  Message reason;                  ///< what proves it
  std::optional<Message> command;  ///< makes the folder again; its paths are quoted for a shell
};

/// Which proofs are asked for.
enum class Proofs {
  ofBuilds,  ///< whole build trees
  all,       ///< and the tag that programs put into their caches
};

/// Whether an entry makes the folder that holds it a project or a working copy, which no build has
/// made.
bool isOfProject(std::string_view name, EntryType type);

/// The proof for an open folder with these marks, nothing when there is none. `location` is its
/// absolute path, symlinks resolved. The sources that a build names must be there, and neither be
/// the folder nor lie in it.
std::optional<BuildProof> buildProof(FileManager& fileManager, int folder,
                                     const std::string& location, const FolderMarks& marks,
                                     Proofs proofs);

/// The same for a folder of which nothing was read yet, whole build trees alone; none for a
/// project. `folder` holds it, and `location` is its path.
std::optional<BuildProof> buildProofOf(FileManager& fileManager, int folder,
                                       const std::string& name, const std::string& location);

/// Whether the open folder holds an extension of an editor, as its manifest says.
bool isEditorExtension(FileManager& fileManager, int folder);

}  // namespace broomtide
