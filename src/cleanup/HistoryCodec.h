#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Records.h"

/// The text of a history file, version 1.
namespace broomtide::HistoryCodec {

/// Why a text is no history that this program can read.
enum class Defect { undecodable, otherVersion };

/// The entries of a text in their order there, or why there are none. A text with a missing key, a
/// value of the wrong type, or a date or identifier in another form than the one that is written
/// has no entries at all; keys that are not known are ignored.
struct Decoded {
  std::vector<CleanupHistoryEntry> entries;
  std::optional<Defect> defect;
};
Decoded decode(std::string_view text);

/// The text for these entries, in their order. Dates lose their fractions of a second, and bytes
/// that are not UTF-8 become U+FFFD.
std::string encode(const std::vector<CleanupHistoryEntry>& entries);

}  // namespace broomtide::HistoryCodec
