#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/Date.h"

namespace broomtide::soak {

/// What an item is and how large, found out with plain system calls and none of the engine's code.
struct Measured {
  std::string identity;  ///< device, inode and type
  Date date;
  std::int64_t bytes = 0;           ///< on the disk; a hard-linked file counts once for each name
  std::int64_t entries = 0;         ///< everything below it, whatever it is
  std::vector<std::string> closed;  ///< what could not be looked at, paths below it, in byte order

  bool operator==(const Measured&) const = default;
};

/// Measures a file, or a folder with all that is in it; no link is followed. A folder that cannot
/// be read is empty and, unless it is the item itself, among `closed`. Throws std::system_error
/// when there is no such item.
Measured measure(const std::string& path);

}  // namespace broomtide::soak
