#include "cli/CleanReport.h"

#include "cli/JsonText.h"
#include "core/ByteCount.h"
#include "core/FileUrl.h"
#include "core/VisibleText.h"

namespace broomtide::cli {
namespace {

const char* literal(bool value) { return value ? "true" : "false"; }

}  // namespace

void writeText(std::ostream& out, const CleanReport& report, const Style& style) {
  using Role = Style::Role;
  if (report.isDryRun) {
    out << "Nothing was moved: this was a dry run.\n";
    return;
  }
  const std::string_view title = report.moved.empty() ? "Nothing was moved" : "Cleanup complete";
  out << style(Role::heading, title) << " · " << counted(report.moved.size(), "item") << " · "
      << formatByteCount(sumOfSizes(report.moved)) << " moved to Trash\n";
  if (!report.moved.empty()) out << "Your file manager can restore it from the Trash.\n";
  if (report.failures.empty()) return;
  out << style(Role::reviewFirst, counted(report.failures.size(), "item") + " left alone") << '\n';
  for (const CleanupFailure& failure : report.failures) {
    out << "    " << visible(failure.path) << ": " << visible(failure.message) << '\n';
  }
}

void writeJson(std::ostream& out, const CleanReport& report) {
  out << "{\n  \"root\": \"" << fileUrl(report.root)
      << "\",\n  \"dryRun\": " << literal(report.isDryRun) << ",\n";
  writeField(out, "moved", report.moved);
  out << ",\n  \"movedBytes\": " << sumOfSizes(report.moved) << ",\n";
  writeField(out, "failures", report.failures);
  out << ",\n  \"historySaved\": " << literal(report.isRecorded) << "\n}\n";
}

}  // namespace broomtide::cli
