#include "cli/HistoryCommand.h"

#include <unistd.h>

#include <iostream>

#include "cli/Failure.h"
#include "cli/Reports.h"
#include "cli/Session.h"

namespace broomtide::cli {

HistoryCommand::HistoryCommand(CLI::App& application)
    : subcommand_(application.add_subcommand("history", "Print what was cleaned, newest first")) {
  subcommand_->add_flag("--json", isJson_, "Print one JSON document instead of text");
}

ExitStatus HistoryCommand::run() const {
  Session session;
  session.loadHistory();
  const std::vector<CleanupHistoryEntry>& entries = session.model().history();
  if (isJson_) {
    writeJson(std::cout, entries);
  } else {
    writeText(std::cout, entries, TerminalStyle::forDescriptor(STDOUT_FILENO));
  }
  return finishOutput();
}

}  // namespace broomtide::cli
