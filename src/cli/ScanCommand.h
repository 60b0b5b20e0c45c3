#pragma once

#include <string>

#include <CLI/CLI.hpp>

#include "cli/Failure.h"
#include "cli/FolderArguments.h"

namespace broomtide::cli {

/// `broomtide-cli scan`: finds what can go and prints it. Nothing is changed.
class ScanCommand {
 public:
  /// Adds the subcommand and its options; the command must stay in place until the command line has
  /// been parsed.
  explicit ScanCommand(CLI::App& application);

  /// Whether the command line asked for this command.
  bool isChosen() const { return subcommand_->parsed(); }

  /// Scans and prints, on the calling thread; reasons for failure go to standard error.
  ExitStatus run() const;

 private:
  CLI::App* subcommand_;
  FolderArguments folder_;
  std::string sort_ = "size";
  bool isJson_ = false;
  bool hasDetails_ = false;
};

}  // namespace broomtide::cli
