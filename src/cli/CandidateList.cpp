#include "cli/CandidateList.h"

#include <algorithm>
#include <span>

#include "core/ByteCount.h"
#include "core/EscapedText.h"

namespace broomtide::cli {
namespace {

using Role = TerminalStyle::Role;
using Rows = std::span<const ScanCandidate* const>;

constexpr std::size_t sizeWidth = 9;
constexpr std::size_t maxPathWidth = 48;

std::int64_t sum(Rows rows) {
  std::int64_t bytes = 0;
  for (const ScanCandidate* candidate : rows) bytes += candidate->size;
  return bytes;
}

Role roleOf(SafetyLevel safety) {
  switch (safety) {
    case SafetyLevel::safe:
      return Role::safe;
    case SafetyLevel::usuallySafe:
      return Role::usuallySafe;
    case SafetyLevel::reviewFirst:
      break;
  }
  return Role::reviewFirst;
}

std::string reasonLines(const ScanCandidate& candidate, const TerminalStyle& style) {
  const std::string indent(sizeWidth + 6, ' ');
  std::string lines = indent + style(Role::quiet, candidate.explanation) + '\n';
  for (const Message& reason : candidate.evidence.lines()) {
    lines += indent + style(Role::quiet, "- " + escaped(reason.text())) + '\n';
  }
  if (candidate.regenerationCommand) {
    lines +=
        indent +
        style(Role::quiet, "To get it back: " + escaped(candidate.regenerationCommand->text())) +
        '\n';
  }
  return lines;
}

std::string factLine(const ScanCandidate& candidate, std::size_t pathWidth,
                     const TerminalStyle& style) {
  const std::string size = formatByteCount(candidate.size);
  const std::string path = escaped(candidate.relativePath);
  const std::string facts = std::string(candidate.category) + " · " +
                            std::string(title(candidate.confidence)) + " · " +
                            std::string(title(candidate.gitStatus));
  return (candidate.isSelected ? "  ✓ " : "    ") + padding(size.size(), sizeWidth) + size + "  " +
         path + padding(displayWidth(path), pathWidth) + "  " + style(Role::quiet, facts) + '\n';
}

void writeSection(std::ostream& out, Rows rows, const TerminalStyle& style, Detail detail) {
  const SafetyLevel safety = rows.front()->safety;
  out << style(roleOf(safety), title(safety)) << " · " << counted(rows.size(), "item") << " · "
      << formatByteCount(sum(rows)) << '\n';
  std::size_t pathWidth = 0;
  for (const ScanCandidate* candidate : rows) {
    pathWidth = std::max(pathWidth, displayWidth(escaped(candidate->relativePath)));
  }
  pathWidth = std::min(pathWidth, maxPathWidth);
  for (const ScanCandidate* candidate : rows) {
    out << factLine(*candidate, pathWidth, style);
    if (detail == Detail::reasons) out << reasonLines(*candidate, style);
  }
  out << '\n';
}

}  // namespace

void writeCandidates(std::ostream& out, const CandidateRows& rows, const TerminalStyle& style,
                     Detail detail) {
  for (auto start = rows.begin(); start != rows.end();) {
    const auto end = std::find_if(start, rows.end(), [start](const ScanCandidate* candidate) {
      return candidate->safety != (*start)->safety;
    });
    writeSection(out, {start, end}, style, detail);
    start = end;
  }
}

std::int64_t sumOfSizes(const CandidateRows& rows) { return sum(rows); }

std::string counted(std::size_t number, std::string_view noun) {
  return std::to_string(number) + ' ' + std::string(noun) + (number == 1 ? "" : "s");
}

}  // namespace broomtide::cli
