#pragma once

#include <ostream>
#include <vector>

#include "cli/TerminalText.h"
#include "core/CleanupResult.h"

namespace broomtide::cli {

/// Writes the history for people, one line for each cleanup, in the order given.
void writeText(std::ostream& out, const std::vector<CleanupHistoryEntry>& entries,
               const Style& style);

}  // namespace broomtide::cli
