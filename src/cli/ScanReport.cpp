#include "cli/ScanReport.h"

#include <algorithm>
#include <iterator>

#include "cli/JsonText.h"
#include "core/ByteCount.h"
#include "core/FileUrl.h"
#include "core/VisibleText.h"

namespace broomtide::cli {
namespace {

using Role = Style::Role;

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
  const CandidateRows& rows = report.candidates;
  std::string text = style(
      Role::heading, counted(rows.size(), "item") + " · " + formatByteCount(sumOfSizes(rows)));
  if (report.mode == ScanMode::project) {
    text += " · " + counted(report.projects.size(), "project");
  }
  if (report.mode != ScanMode::caches) {
    text += " · " + std::to_string(report.entriesScanned) + " entries scanned";
  }
  text += '\n';

  CandidateRows selected;
  std::ranges::copy_if(rows, std::back_inserter(selected), &ScanCandidate::isSelected);
  if (selected.empty()) return text;
  return text + "✓ marks what is safe enough to be selected from the start: " +
         counted(selected.size(), "item") + " · " + formatByteCount(sumOfSizes(selected)) + '\n';
}

}  // namespace

void writeText(std::ostream& out, const ScanReport& report, const Style& style, Detail detail) {
  if (report.candidates.empty()) out << nothingFound(report, style);
  writeCandidates(out, report.candidates, style, detail);
  out << issueLines(report.issues, style);
  if (!report.candidates.empty()) out << totals(report, style);
}

void writeJson(std::ostream& out, const ScanReport& report) {
  out << "{\n  \"mode\": \"" << rawValue(report.mode) << "\",\n  \"root\": \""
      << fileUrl(report.root) << "\",\n  \"entriesScanned\": " << report.entriesScanned
      << ",\n  \"reclaimableBytes\": " << sumOfSizes(report.candidates) << ",\n";
  writeField(out, "candidates", report.candidates);
  out << ",\n";
  writeField(out, "issues", report.issues);
  out << ",\n";
  writeField(out, "projects", report.projects);
  out << "\n}\n";
}

}  // namespace broomtide::cli
