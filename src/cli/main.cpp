#include <CLI/CLI.hpp>

#include "cli/ExitStatus.h"
#include "cli/Interruption.h"
#include "cli/ScanCommand.h"

int main(int argumentCount, char** arguments) {
  using namespace broomtide::cli;
  const Interruption interruption;

  CLI::App application("Finds disposable developer files and says how safe each one is to remove.",
                       "broomtide-cli");
  application.set_version_flag("--version", "broomtide-cli " BROOMTIDE_VERSION);
  application.require_subcommand(1);
  const ScanCommand scan(application);
  try {
    application.parse(argumentCount, arguments);
  } catch (const CLI::ParseError& stop) {
    const bool isAnswered = application.exit(stop) == 0;  // prints help, version or the mistake
    return static_cast<int>(isAnswered ? ExitStatus::done : ExitStatus::wrongUsage);
  }
  return static_cast<int>(scan.run(interruption));
}
