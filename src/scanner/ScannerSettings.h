#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace broomtide {

/// What a scanner takes from its surroundings.
struct ScannerSettings {
  std::size_t measuringThreads;           ///< at least 1
  std::optional<std::string> git;         ///< the Git tool; nothing leaves every status open
  std::chrono::milliseconds gitRunLimit;  ///< how long one run of Git may take

  /// One measuring thread for each processor, eight at most, and this machine's Git.
  static ScannerSettings forThisMachine();
};

}  // namespace broomtide
