#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/TerminalText.h"
#include "core/SortOrder.h"

namespace broomtide::cli {

/// How much is told about each candidate.
enum class Detail {
  facts,    ///< one line
  reasons,  ///< also the reasons and the way back
};

/// Writes candidates, which must be sorted by safety, under a heading for each safety level.
void writeCandidates(std::ostream& out, const CandidateRows& rows, const TerminalStyle& style,
                     Detail detail);

/// The summed size of candidates, in bytes.
std::int64_t sumOfSizes(const CandidateRows& rows);

/// A number with its noun, such as "1 item" and "2 items".
std::string counted(std::size_t number, std::string_view noun);

}  // namespace broomtide::cli
