#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace broomtide {

/// What a scanner takes from its surroundings.
struct ScannerSettings {
  std::size_t measuringThreads;           ///< at least 1
  std::optional<std::string> git;         ///< the Git tool; nothing leaves every status open
  std::chrono::milliseconds gitRunLimit;  ///< how long one run of Git may take
  std::optional<std::string> homeTrash = std::nullopt;  ///< the user's own Trash, never scanned
  std::vector<std::string> homes = {};  ///< of this user, absolute paths without symlinks

  /// One measuring thread for each processor, eight at most, and this machine's Git and
  /// Trash.
  static ScannerSettings forThisMachine();
};

}  // namespace broomtide
