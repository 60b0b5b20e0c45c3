#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace broomtide {

/// A folder in a Trash, as one line of the Trash's list of sizes tells of it.
struct DirectorySize {
  std::string name;            ///< its name in the Trash
  std::int64_t size = 0;       ///< in bytes
  std::int64_t changedAt = 0;  ///< when its information file was changed, in seconds since 1970
};

/// The text of the list with new folders at its end. What the text says of folders of the same
/// names is dropped, because it is of folders that have gone. All other lines stay as they are, in
/// their order, also those that nobody can read; the last one gets its newline.
std::string withDirectorySizes(std::string_view text, const std::vector<DirectorySize>& added);

}  // namespace broomtide
