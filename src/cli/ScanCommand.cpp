#include "cli/ScanCommand.h"

#include <unistd.h>

#include <iostream>
#include <map>

#include "cli/Failure.h"
#include "cli/Reports.h"
#include "cli/Session.h"

namespace broomtide::cli {
namespace {

const std::map<std::string, SortOrder> sortOrders{
    {"size", SortOrder::size}, {"name", SortOrder::name}, {"date", SortOrder::date}};

}  // namespace

ScanCommand::ScanCommand(CLI::App& application)
    : subcommand_(application.add_subcommand("scan", "Find what can go and print it")),
      folder_(*subcommand_) {
  subcommand_
      ->add_option("--sort", sort_,
                   "Order within each safety level: the largest first (the default), by\n"
                   "name, or the oldest first")
      ->check(oneOf(sortOrders))
      ->option_text("size|name|date");
  subcommand_->add_flag("--details", hasDetails_,
                        "Print the reasons and the way back for every item");
  subcommand_->add_flag("--json", isJson_, "Print one JSON document instead of text");
}

ExitStatus ScanCommand::run() const {
  const std::optional<std::string> root = folder_.root();
  if (!root) return ExitStatus::failed;
  Session session;
  const ExitStatus status = session.scan(*root, folder_.mode());
  if (status != ExitStatus::done) return status;

  const AppModel& model = session.model();
  ScanReport report{.mode = folder_.mode(),
                    .root = *root,
                    .entriesScanned = model.progress().entriesScanned,
                    .candidates = rowsOf(model.candidates()),
                    .issues = model.scanIssues(),
                    .projects = model.projectContexts()};
  sortRows(report.candidates, sortOrders.at(sort_));
  if (isJson_) {
    writeJson(std::cout, report);
  } else {
    writeText(std::cout, report, TerminalStyle::forDescriptor(STDOUT_FILENO),
              hasDetails_ ? Detail::reasons : Detail::facts);
  }
  return finishOutput();
}

}  // namespace broomtide::cli
