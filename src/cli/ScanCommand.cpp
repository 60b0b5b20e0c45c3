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

#include "app/Services.h"
#include "cli/Interruption.h"
#include "cli/ProgressLine.h"
#include "cli/ScanReport.h"
#include "cli/SortOrder.h"
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

// Accepts the keys of a table, and names them when it gets something else.
template <typename Value>
CLI::Validator oneOf(const std::map<std::string, Value>& table) {
  return CLI::Validator(
      [&table](const std::string& given) {
        if (table.contains(given)) return std::string();
        std::string keys;
        for (const auto& [key, value] : table) keys += (keys.empty() ? "" : ", ") + key;
        return "'" + given + "' is none of " + keys;
      },
      "");
}

// The absolute, lexically normal form of a path. A ".." after a link leads to where the link's
// target lies, as it does everywhere else.
std::string absolutePath(const std::string& given, std::error_code& error) {
  const std::filesystem::path absolute = std::filesystem::absolute(given, error);
  if (error) return {};
  std::filesystem::path result;
  for (const std::filesystem::path& part : absolute) {
    if (part == ".." && std::filesystem::is_symlink(result, error)) {
      result = std::filesystem::canonical(result, error);
      if (error) return {};
    }
    result = part == ".." ? result.parent_path() : result / part;
    if (part == "." || part.empty()) result = paths::standardized(result.native());
  }
  error.clear();
  return paths::standardized(result.native());
}

}  // namespace

ScanCommand::ScanCommand(CLI::App& application)
    : subcommand_(application.add_subcommand("scan", "Find what can go and print it")) {
  subcommand_
      ->add_option("--mode", mode_,
                   "What to look for: a folder of projects (the default), developer caches\n"
                   "under a home folder, or old files in a Downloads folder")
      ->check(oneOf(modes))
      ->option_text("project|caches|downloads");
  subcommand_
      ->add_option("--sort", sort_,
                   "Order within each safety level: the largest first (the default), by\n"
                   "name, or the oldest first")
      ->check(oneOf(sortOrders))
      ->option_text("size|name|date");
  subcommand_->add_flag("--details", hasDetails_,
                        "Print the reasons and the way back for every item");
  subcommand_->add_flag("--json", isJson_, "Print one JSON document instead of text");
  subcommand_->add_option("FOLDER", folder_, "The folder to scan")
      ->required()
      ->check([](const std::string& folder) {
        return folder.empty() ? std::string("the name of the folder is empty") : std::string();
      })
      ->option_text(" ");
}

ExitStatus ScanCommand::run() const {
  std::error_code error;
  const std::string root = absolutePath(folder_, error);
  if (error) return fail(folder_, error.message());
  if (std::filesystem::equivalent(root, "/", error)) {
    return fail(root, "This is the whole file system. Choose a folder below it.");
  }

  ScanReport report{.mode = modes.at(mode_), .root = root, .entriesScanned = 0, .result = {}};
  try {
    const Interruption interruption;
    ProgressLine line;
    const Date now = std::chrono::system_clock::now();
    report.result = services::makeScanner()->scan(
        root, report.mode, now,
        [&](const ScanProgress& progress, std::span<const ScanCandidate>, std::size_t) {
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

  const SortOrder order = sortOrders.at(sort_);
  if (order != SortOrder::size) sortCandidates(report.result.candidates, order);
  if (isJson_) {
    writeJson(std::cout, report);
  } else {
    writeText(std::cout, report, Style::forDescriptor(STDOUT_FILENO), hasDetails_);
  }
  if (!std::cout.flush()) {
    return fail("standard output", std::generic_category().message(errno));
  }
  return ExitStatus::done;
}

}  // namespace broomtide::cli
