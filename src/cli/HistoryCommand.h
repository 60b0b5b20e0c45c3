#pragma once

#include <CLI/CLI.hpp>

#include "cli/Failure.h"

namespace broomtide::cli {

/// `broomtide-cli history`: prints the cleanups so far, the newest first.
class HistoryCommand {
 public:
  /// Adds the subcommand and its options; the command must stay in place until the command line has
  /// been parsed.
  explicit HistoryCommand(CLI::App& application);

  /// Whether the command line asked for this command.
  bool isChosen() const { return subcommand_->parsed(); }

  /// Reads and prints, on the calling thread.
  ExitStatus run() const;

 private:
  CLI::App* subcommand_;
  bool isJson_ = false;
};

}  // namespace broomtide::cli
