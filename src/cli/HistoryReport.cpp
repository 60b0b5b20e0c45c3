#include "cli/HistoryReport.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/ByteCount.h"
#include "core/DateText.h"
#include "core/VisibleText.h"

namespace broomtide::cli {
void writeText(std::ostream& out, const std::vector<CleanupHistoryEntry>& entries,
               const Style& style) {
  using Role = Style::Role;
  if (entries.empty()) {
    out << style(Role::heading, "No cleanup history") << "\nCompleted cleanups will appear here.\n";
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
      widths[index] = std::max(widths[index], columns(cells.back()[index]));
    }
  }
  for (std::size_t row = 0; row < entries.size(); ++row) {
    const auto& [date, count, size] = cells[row];
    out << style(Role::quiet, date) << padding(columns(date), widths[0]) << "  "
        << padding(columns(count), widths[1]) << count << "  " << padding(columns(size), widths[2])
        << size << "  " << visible(entries[row].rootPath);
    // After a name in a script that is written from right to left, a terminal that follows it would
    // put a number before that name. A word stays where it is.
    if (const std::size_t failures = entries[row].failures.size(); failures > 0) {
      out << "  " << style(Role::quiet, "left alone: " + std::to_string(failures));
    }
    out << '\n';
  }
}

}  // namespace broomtide::cli
