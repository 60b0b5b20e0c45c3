#include "cli/CandidateText.h"

#include <algorithm>
#include <span>

#include "core/ByteCount.h"
#include "core/VisibleText.h"

namespace broomtide::cli {
namespace {

using Role = Style::Role;
using Rows = std::span<const ScanCandidate* const>;

constexpr std::size_t sizeColumns = 9;
constexpr std::size_t mostPathColumns = 48;

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

std::string reasonLines(const ScanCandidate& candidate, const Style& style) {
  const std::string indent(sizeColumns + 6, ' ');
  std::string lines = indent + style(Role::quiet, candidate.explanation) + '\n';
  for (const std::string& reason : candidate.evidence.lines()) {
    lines += indent + style(Role::quiet, "- " + visible(reason)) + '\n';
  }
  if (candidate.regenerationCommand) {
    lines += indent +
             style(Role::quiet, "To get it back: " + std::string(*candidate.regenerationCommand)) +
             '\n';
  }
  return lines;
}

std::string factLine(const ScanCandidate& candidate, std::size_t pathColumns, const Style& style) {
  const std::string size = formatByteCount(candidate.size);
  const std::string path = visible(candidate.relativePath);
  const std::string facts = std::string(candidate.category) + " · " +
                            std::string(title(candidate.confidence)) + " · " +
                            std::string(title(candidate.gitStatus));
  return (candidate.isSelected ? "  ✓ " : "    ") + padding(size.size(), sizeColumns) + size +
         "  " + path + padding(columns(path), pathColumns) + "  " + style(Role::quiet, facts) +
         '\n';
}

void writeSection(std::ostream& out, Rows rows, const Style& style, Detail detail) {
  const SafetyLevel safety = rows.front()->safety;
  out << style(roleOf(safety), title(safety)) << " · " << counted(rows.size(), "item") << " · "
      << formatByteCount(sum(rows)) << '\n';
  std::size_t pathColumns = 0;
  for (const ScanCandidate* candidate : rows) {
    pathColumns = std::max(pathColumns, columns(visible(candidate->relativePath)));
  }
  pathColumns = std::min(pathColumns, mostPathColumns);
  for (const ScanCandidate* candidate : rows) {
    out << factLine(*candidate, pathColumns, style);
    if (detail == Detail::reasons) out << reasonLines(*candidate, style);
  }
  out << '\n';
}

}  // namespace

void writeCandidates(std::ostream& out, const CandidateRows& rows, const Style& style,
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
