#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace broomtide {

/// What an entry inside a folder, by its name, says about the folder.
enum class Sign : std::uint8_t {
  repository,     ///< where a version control system keeps what it knows
  protectedFile,  ///< a file that is never offered on its own
  guardedFolder,  ///< a folder that is never entered
  source,         ///< a file that people write, where tools write
  manifest,       ///< at the top: a project of its own
  environment,    ///< at the top: the mark of a Python environment, which speaks for one
  none,
};

/// Which signs count for an item, beside repositories, which always do. A constant of the rules.
struct ContentsPolicy {
  bool countsFiles = false;       ///< protected files, guarded folders and manifests
  bool isNamedAsSources = false;  ///< folders at the top are called as those of the sources are
  bool hasManifest = false;       ///< the tool writes a manifest of its own at the top
  bool hasStores = false;         ///< the tool keeps bare repositories
  bool countsSources = false;     ///< all kinds of sources but `written`
  bool isEnvironment = false;     ///< is what its name says only with the mark of an environment
  std::string_view written = {};  ///< path extensions that the tool writes, a blank around each

  bool operator==(const ContentsPolicy&) const = default;
};

/// The signs found in a folder. Two readings of the same signs are equal, in whatever order they
/// were found.
class Contents {
 public:
  /// Adds a sign at a path below the folder.
  void add(Sign sign, std::string_view path);

  /// The path of the first such sign in the order of a walk; empty when there is none.
  std::string_view first(Sign sign) const;

  /// A number for the set of signs, for comparing within one process. Zero for none.
  std::uint64_t fingerprint() const { return fingerprint_; }

 private:
  std::vector<std::pair<Sign, std::string>> first_;  // one of each that was found
  std::uint64_t fingerprint_ = 0;
};

/// Whether a path comes before another one in a depth-first walk with siblings by name.
bool comesFirstInWalk(std::string_view left, std::string_view right);

}  // namespace broomtide
