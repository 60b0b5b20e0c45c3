#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>

#include "cli/ExitStatus.h"
#include "cli/Interruption.h"
#include "cli/ScanCommand.h"

namespace broomtide::cli {
namespace {

ExitStatus run(int argumentCount, char** arguments) {
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
    return isAnswered ? ExitStatus::done : ExitStatus::wrongUsage;
  }
  return scan.run(interruption);
}

}  // namespace
}  // namespace broomtide::cli

int main(int argumentCount, char** arguments) {
  using broomtide::cli::ExitStatus;
  ExitStatus status = ExitStatus::failed;
  try {
    status = broomtide::cli::run(argumentCount, arguments);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "broomtide-cli: %s\n", failure.what());
  }
  return static_cast<int>(status);
}
