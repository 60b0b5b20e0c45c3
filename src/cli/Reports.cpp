#include "cli/Reports.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/EscapedText.h"
#include "core/Paths.h"
#include "core/RecordJson.h"

namespace broomtide::cli {
namespace {

template <typename Record>
const Record& recordOf(const Record& record) {
  return record;
}
template <typename Record>
const Record& recordOf(const Record* record) {
  return *record;
}

// Writes records, or what pointers to records point to, as a JSON array, one on each line, which
// is itself indented by `indent`.
template <typename Records>
void writeArray(std::ostream& out, const Records& records, std::string_view indent) {
  std::string_view separator = "[\n";
  for (const auto& record : records) {
    out << separator << indent << "  " << toJson(recordOf(record)).dump(-1, ' ', true);
    separator = ",\n";
  }
  if (records.empty()) {
    out << "[]";
  } else {
    out << '\n' << indent << ']';
  }
}

// The same as one field of an object.
template <typename Records>
void writeField(std::ostream& out, std::string_view name, const Records& records) {
  out << "  \"" << name << "\": ";
  writeArray(out, records, "  ");
}

const char* literal(bool value) { return value ? "true" : "false"; }

using Role = TerminalStyle::Role;

std::string issueLines(const std::vector<ScanIssue>& issues, const TerminalStyle& style) {
  if (issues.empty()) return {};
  const Message skipped{.pattern = messages::itemsSkipped, .values = {countValue(issues.size())}};
  std::string text = style(Role::usuallySafe, skipped.text()) + '\n';
  for (const ScanIssue& issue : issues) {
    text += "    " + escaped(issue.path) + ": " + escaped(issue.message) + '\n';
  }
  return text + '\n';
}

std::string nothingFound(const ScanReport& report, const TerminalStyle& style) {
  const Message why{.pattern = report.mode == ScanMode::caches ? messages::cachesClean
                                                               : messages::nothingSupported,
                    .values = {countValue(static_cast<std::size_t>(report.entriesScanned))}};
  return style(Role::heading, messages::nothingFound) + '\n' + why.text() + "\n\n";
}

std::string totals(const ScanReport& report, const TerminalStyle& style) {
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

void writeText(std::ostream& out, const ScanReport& report, const TerminalStyle& style,
               Detail detail) {
  if (report.candidates.empty()) out << nothingFound(report, style);
  writeCandidates(out, report.candidates, style, detail);
  out << issueLines(report.issues, style);
  if (!report.candidates.empty()) out << totals(report, style);
}

void writeJson(std::ostream& out, const ScanReport& report) {
  out << "{\n  \"mode\": \"" << rawValue(report.mode) << "\",\n  \"root\": \""
      << paths::fileUrl(report.root) << "\",\n  \"entriesScanned\": " << report.entriesScanned
      << ",\n  \"reclaimableBytes\": " << sumOfSizes(report.candidates) << ",\n";
  writeField(out, "candidates", report.candidates);
  out << ",\n";
  writeField(out, "issues", report.issues);
  out << ",\n";
  writeField(out, "projects", report.projects);
  out << "\n}\n";
}

void writeText(std::ostream& out, const CleanReport& report, const TerminalStyle& style) {
  if (report.isDryRun) {
    out << "Nothing was moved: this was a dry run.\n";
    return;
  }
  const std::string_view title =
      report.moved.empty() ? "Nothing was moved" : messages::cleanupComplete;
  out << style(Role::heading, title) << " · " << counted(report.moved.size(), "item") << " · "
      << formatByteCount(sumOfSizes(report.moved)) << " moved to Trash\n";
  if (!report.moved.empty()) out << "Your file manager can restore it from the Trash.\n";
  if (report.failures.empty()) return;
  out << style(Role::reviewFirst, counted(report.failures.size(), "item") + " left alone") << '\n';
  for (const CleanupFailure& failure : report.failures) {
    out << "    " << escaped(failure.path) << ": " << escaped(failure.message.text()) << '\n';
  }
}

void writeJson(std::ostream& out, const CleanReport& report) {
  out << "{\n  \"root\": \"" << paths::fileUrl(report.root)
      << "\",\n  \"dryRun\": " << literal(report.isDryRun) << ",\n";
  writeField(out, "moved", report.moved);
  out << ",\n  \"movedBytes\": " << sumOfSizes(report.moved) << ",\n";
  writeField(out, "failures", report.failures);
  out << ",\n  \"historySaved\": " << literal(report.isRecorded) << "\n}\n";
}

void writeText(std::ostream& out, const std::vector<CleanupHistoryEntry>& entries,
               const TerminalStyle& style) {
  if (entries.empty()) {
    out << style(Role::heading, messages::noHistory) << '\n' << messages::historyAppears << '\n';
    return;
  }
  // Date, count and size of each entry, and how wide each of these columns is.
  std::vector<std::array<std::string, 3>> cells;
  std::array<std::size_t, 3> widths{};
  const DateText dateText;
  for (const CleanupHistoryEntry& entry : entries) {
    cells.push_back({dateText.dateAndTime(entry.date),
                     std::to_string(entry.movedCount) + " item(s)",
                     formatByteCount(entry.movedBytes)});
    for (std::size_t index = 0; index < widths.size(); ++index) {
      widths[index] = std::max(widths[index], displayWidth(cells.back()[index]));
    }
  }
  for (std::size_t row = 0; row < entries.size(); ++row) {
    const auto& [date, count, size] = cells[row];
    out << style(Role::quiet, date) << padding(displayWidth(date), widths[0]) << "  "
        << padding(displayWidth(count), widths[1]) << count << "  "
        << padding(displayWidth(size), widths[2]) << size << "  " << escaped(entries[row].rootPath);
    // After a name in a script that is written from right to left, a terminal that follows it would
    // put a number before that name. A word stays where it is.
    if (const std::size_t failures = entries[row].failures.size(); failures > 0) {
      out << "  " << style(Role::quiet, "left alone: " + std::to_string(failures));
    }
    out << '\n';
  }
}

void writeJson(std::ostream& out, const std::vector<CleanupHistoryEntry>& entries) {
  writeArray(out, entries, "");
  out << '\n';
}

}  // namespace broomtide::cli
