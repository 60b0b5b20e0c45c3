#include "cli/ScanReport.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "core/ByteCount.h"
#include "core/FileUrl.h"
#include "core/RecordJson.h"

namespace broomtide::cli {
namespace {

using Role = Style::Role;

constexpr std::size_t sizeColumns = 9;
constexpr std::size_t mostPathColumns = 48;

std::string counted(std::size_t number, std::string_view noun) {
  return std::to_string(number) + ' ' + std::string(noun) + (number == 1 ? "" : "s");
}

std::int64_t sumOfSizes(std::span<const ScanCandidate> candidates) {
  std::int64_t sum = 0;
  for (const ScanCandidate& candidate : candidates) sum += candidate.size;
  return sum;
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

std::string padding(std::size_t used, std::size_t width) {
  return std::string(width > used ? width - used : 0, ' ');
}

std::string detailLines(const ScanCandidate& candidate, const Style& style) {
  const std::string indent(sizeColumns + 6, ' ');
  std::string lines = indent + style(Role::quiet, candidate.explanation) + '\n';
  for (const std::string& reason : candidate.evidence) {
    lines += indent + style(Role::quiet, "- " + visible(reason)) + '\n';
  }
  if (candidate.regenerationCommand) {
    lines +=
        indent + style(Role::quiet, "To get it back: " + *candidate.regenerationCommand) + '\n';
  }
  return lines;
}

std::string section(std::span<const ScanCandidate> candidates, const Style& style,
                    bool hasDetails) {
  const SafetyLevel safety = candidates.front().safety;
  std::string text = style(roleOf(safety), title(safety)) + " · " +
                     counted(candidates.size(), "item") + " · " +
                     formatByteCount(sumOfSizes(candidates)) + '\n';

  std::size_t pathColumns = 0;
  for (const ScanCandidate& candidate : candidates) {
    pathColumns = std::max(pathColumns, columns(visible(candidate.relativePath)));
  }
  pathColumns = std::min(pathColumns, mostPathColumns);

  for (const ScanCandidate& candidate : candidates) {
    const std::string size = formatByteCount(candidate.size);
    const std::string path = visible(candidate.relativePath);
    const std::string facts = candidate.category + " · " +
                              std::string(title(candidate.confidence)) + " · " +
                              std::string(title(candidate.gitStatus));
    text += candidate.isSelected ? "  ✓ " : "    ";
    text += padding(size.size(), sizeColumns) + size + "  " + path +
            padding(columns(path), pathColumns) + "  " + style(Role::quiet, facts) + '\n';
    if (hasDetails) text += detailLines(candidate, style);
  }
  return text + '\n';
}

std::string issueLines(const std::vector<ScanIssue>& issues, const Style& style) {
  if (issues.empty()) return {};
  std::string text = style(Role::usuallySafe, std::to_string(issues.size()) +
                                                  " item(s) could not be read and were skipped.") +
                     '\n';
  for (const ScanIssue& issue : issues) {
    text += "    " + visible(issue.path) + ": " + visible(issue.message) + '\n';
  }
  return text + '\n';
}

std::string nothingFound(const ScanReport& report, const Style& style) {
  std::string text = style(Role::heading, "Nothing to clean here") + '\n';
  if (report.mode == ScanMode::caches) {
    text += "The known developer cache locations under this folder are already clean.\n\n";
  } else {
    text += "Broomtide scanned " + std::to_string(report.entriesScanned) +
            " items but did not find a supported disposable artifact in this folder.\n\n";
  }
  return text;
}

std::string totals(const ScanReport& report, const Style& style) {
  const std::vector<ScanCandidate>& candidates = report.result.candidates;
  std::string text = style(Role::heading, counted(candidates.size(), "item") + " · " +
                                              formatByteCount(report.reclaimableBytes()));
  if (report.mode == ScanMode::project) {
    text += " · " + counted(report.result.projects.size(), "project");
  }
  if (report.mode != ScanMode::caches) {
    text += " · " + std::to_string(report.entriesScanned) + " entries scanned";
  }
  text += '\n';

  std::size_t selected = 0;
  std::int64_t selectedBytes = 0;
  for (const ScanCandidate& candidate : candidates) {
    if (!candidate.isSelected) continue;
    ++selected;
    selectedBytes += candidate.size;
  }
  if (selected == 0) return text;
  return text +
         "✓ marks what is safe enough to be selected from the start: " + counted(selected, "item") +
         " · " + formatByteCount(selectedBytes) + '\n';
}

// A field whose value is an array of records, one on each line.
template <typename Record>
void writeRecords(std::ostream& out, std::string_view field, const std::vector<Record>& records) {
  out << "  \"" << field << "\": [";
  std::string_view separator = "\n    ";
  for (const Record& record : records) {
    out << separator << toJson(record).dump(-1, ' ', true);
    separator = ",\n    ";
  }
  out << (records.empty() ? "]" : "\n  ]");
}

}  // namespace

std::int64_t ScanReport::reclaimableBytes() const { return sumOfSizes(result.candidates); }

void writeText(std::ostream& out, const ScanReport& report, const Style& style, bool hasDetails) {
  const std::span<const ScanCandidate> candidates = report.result.candidates;
  if (candidates.empty()) out << nothingFound(report, style);
  for (std::size_t start = 0; start < candidates.size();) {
    std::size_t end = start;
    while (end < candidates.size() && candidates[end].safety == candidates[start].safety) ++end;
    out << section(candidates.subspan(start, end - start), style, hasDetails);
    start = end;
  }
  out << issueLines(report.result.issues, style);
  if (!candidates.empty()) out << totals(report, style);
}

void writeJson(std::ostream& out, const ScanReport& report) {
  out << "{\n  \"mode\": \"" << rawValue(report.mode) << "\",\n  \"root\": \""
      << fileUrl(report.root) << "\",\n  \"entriesScanned\": " << report.entriesScanned
      << ",\n  \"reclaimableBytes\": " << report.reclaimableBytes() << ",\n";
  writeRecords(out, "candidates", report.result.candidates);
  out << ",\n";
  writeRecords(out, "issues", report.result.issues);
  out << ",\n";
  writeRecords(out, "projects", report.result.projects);
  out << "\n}\n";
}

}  // namespace broomtide::cli
