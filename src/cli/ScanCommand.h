#pragma once

#include <string>

#include <CLI/CLI.hpp>

#include "cli/ExitStatus.h"
#include "cli/Interruption.h"
#include "cli/SortOrder.h"
#include "core/Enumerations.h"

namespace broomtide::cli {

/// `broomtide-cli scan`: finds what can go and prints it. Nothing is changed.
class ScanCommand {
 public:
  /// Adds the subcommand and its options; the command must outlive the application object.
  explicit ScanCommand(CLI::App& application);

  /// Whether the command line asked for this command.
  bool isChosen() const { return subcommand_->parsed(); }

  ExitStatus run(const Interruption& interruption) const;

 private:
  CLI::App* subcommand_;
  ScanMode mode_ = ScanMode::project;
  SortOrder sort_ = SortOrder::size;
  bool isJson_ = false;
  bool hasDetails_ = false;
  std::string folder_;
};

}  // namespace broomtide::cli
