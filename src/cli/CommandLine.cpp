#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "app/Services.h"
#include "cli/CleanCommand.h"
#include "cli/HistoryCommand.h"
#include "cli/ScanCommand.h"
#include "core/EscapedText.h"

namespace broomtide::cli {
namespace {

// Why a command is wrong that was given what looks like an option; nothing when it was not. The
// folder would be what is missing otherwise.
std::optional<std::string> reasonOfUnknownOption(const CLI::App& command) {
  const std::vector<std::string> unknown = command.remaining();
  const bool isOption =
      !unknown.empty() && unknown.front().starts_with('-') && unknown.front() != "--";
  if (!isOption) return std::nullopt;
  const bool takesFolder = command.get_option_no_throw("FOLDER") != nullptr;
  return "There is no option '" + unknown.front() + "' here." +
         (takesFolder ? " Put -- before a folder whose name begins with a dash." : "");
}

// Says what is wrong with the command line and where to read more.
ExitStatus reject(const CLI::App& application, const CLI::ParseError& mistake) {
  std::string reason = mistake.what();
  std::string help = "broomtide-cli";
  const std::vector<std::string> unknown = application.remaining();
  if (!application.get_subcommands().empty()) {
    const CLI::App& command = *application.get_subcommands().front();
    help += ' ' + command.get_name();
    reason = reasonOfUnknownOption(command).value_or(reason);
  } else if (unknown.empty()) {
    reason = "Say what to do: scan, clean or history.";
  } else {
    reason = "There is no command or option '" + unknown.front() + "'.";
  }
  std::fprintf(stderr, "broomtide-cli: %s\nRun %s --help for more information.\n",
               escaped(reason).c_str(), help.c_str());
  return ExitStatus::wrongUsage;
}

}  // namespace

ExitStatus runCommandLine(int argumentCount, char** arguments) {
  CLI::App application("Finds disposable developer files and says how safe each one is to remove.",
                       "broomtide-cli");
  application.set_version_flag("--version", "broomtide-cli " BROOMTIDE_VERSION);
  application.require_subcommand(1);
  ScanCommand scan(application);
  CleanCommand clean(application);
  HistoryCommand history(application);
  try {
    application.parse(argumentCount, arguments);
  } catch (const CLI::ParseError& stop) {
    const bool isAnswer = stop.get_exit_code() == 0;  // --help or --version
    if (isAnswer) application.exit(stop);
    return isAnswer ? ExitStatus::done : reject(application, stop);
  }
  if (const auto refusal = services::refusal()) return fail(*refusal);
  if (scan.isChosen()) return scan.run();
  if (clean.isChosen()) return clean.run();
  return history.run();
}

}  // namespace broomtide::cli
