#include "cli/ScanCommand.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <map>
#include <string_view>
#include <system_error>
#include <utility>

#include "app/Services.h"
#include "cli/ProgressLine.h"
#include "cli/ScanReport.h"
#include "core/Paths.h"
#include "core/ScannerError.h"

namespace broomtide::cli {
namespace {

const std::map<std::string, ScanMode> modes{{"project", ScanMode::project},
                                            {"caches", ScanMode::caches},
                                            {"downloads", ScanMode::downloads}};
const std::map<std::string, SortOrder> sortOrders{
    {"size", SortOrder::size}, {"name", SortOrder::name}, {"date", SortOrder::date}};

ExitStatus fail(const std::string& folder, std::string_view reason) {
  std::fprintf(stderr, "broomtide-cli: %s: %s\n", visible(folder).c_str(),
               std::string(reason).c_str());
  return ExitStatus::failed;
}

}  // namespace

ScanCommand::ScanCommand(CLI::App& application)
    : subcommand_(application.add_subcommand("scan", "Find what can go and print it")) {
  subcommand_
      ->add_option("--mode", mode_,
                   "What to look for: a folder of projects, developer caches under a home\n"
                   "folder, or old files in a Downloads folder")
      ->transform(CLI::CheckedTransformer(modes).description("{project,caches,downloads}"))
      ->option_text("project|caches|downloads");
  subcommand_->add_option("--sort", sort_, "Order within each safety level (default: size)")
      ->transform(CLI::CheckedTransformer(sortOrders).description("{size,name,date}"))
      ->option_text("size|name|date");
  subcommand_->add_flag("--details", hasDetails_,
                        "Print the reasons and the way back for every item");
  subcommand_->add_flag("--json", isJson_, "Print one JSON document instead of text");
  subcommand_->add_option("folder", folder_, "The folder to scan")
      ->required()
      ->check([](const std::string& folder) {
        return folder.empty() ? std::string("the name of the folder is empty") : std::string();
      })
      ->option_text("FOLDER");
}

ExitStatus ScanCommand::run(const Interruption& interruption) const {
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(folder_, error);
  if (error) return fail(folder_, error.message());
  const std::string root = paths::standardized(absolute.native());
  if (std::filesystem::equivalent(root, "/", error)) {
    return fail(root, "This is the whole file system. Choose a folder below it.");
  }

  ScanReport report{.mode = mode_, .root = root, .entriesScanned = 0, .result = {}};
  try {
    ProgressLine line;
    const Date now = std::chrono::system_clock::now();
    report.result = services::makeScanner()->scan(
        root, mode_, now,
        [&](const ScanProgress& progress, std::span<const ScanCandidate>) {
          report.entriesScanned = progress.entriesScanned;
          line.show(progress);
        },
        interruption.token());
  } catch (const CancellationError&) {
    std::fputs("Scan cancelled. No files were changed.\n", stderr);
    return ExitStatus::interrupted;
  } catch (const std::exception& failure) {
    return fail(root, failure.what());
  }

  if (sort_ != SortOrder::size) sortCandidates(report.result.candidates, sort_);
  const Style style = Style::forDescriptor(STDOUT_FILENO);
  if (isJson_) {
    writeJson(std::cout, report);
  } else {
    writeText(std::cout, report, style, hasDetails_);
  }
  if (!std::cout.flush()) {
    return fail("standard output", std::generic_category().message(errno));
  }
  return ExitStatus::done;
}

}  // namespace broomtide::cli
