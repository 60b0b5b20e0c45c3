#pragma once

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/CandidateList.h"
#include "cli/Failure.h"
#include "cli/FolderArguments.h"
#include "cli/Session.h"

namespace broomtide::cli {

/// `broomtide-cli clean`: finds what can go, asks, and moves what is selected to the Trash.
class CleanCommand {
 public:
  /// Adds the subcommand and its options; the command must stay in place until the command line has
  /// been parsed.
  explicit CleanCommand(CLI::App& application);

  /// Whether the command line asked for this command.
  bool isChosen() const { return subcommand_->parsed(); }

  /// Scans, asks, cleans and prints, on the calling thread; questions and reasons for failure go to
  /// standard error.
  ExitStatus run() const;

 private:
  enum class Decision { clean, dryRun, cancel };

  bool mustAsk() const { return !isConfirmed_ && !isDryRun_; }
  ExitStatus select(Session& session, const std::string& root) const;
  Decision decide(const CandidateRows& selected) const;
  void report(const Session& session, const std::string& root, Decision decision) const;

  CLI::App* subcommand_;
  FolderArguments folder_;
  std::vector<std::string> items_;
  bool isSafe_ = false;
  bool isDryRun_ = false;
  bool isConfirmed_ = false;
  bool isJson_ = false;
};

}  // namespace broomtide::cli
