#include "cli/CleanCommand.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <iterator>

#include "cli/Failure.h"
#include "cli/Reports.h"
#include "core/ByteCount.h"
#include "core/Paths.h"

namespace broomtide::cli {
namespace {

CandidateRows selectedRows(const AppModel& model) {
  CandidateRows rows;
  std::ranges::copy_if(rowsOf(model.candidates()), std::back_inserter(rows),
                       &ScanCandidate::isSelected);
  return rows;
}

bool isYes(std::string_view answer) {
  return paths::equalIgnoringCase(answer, "y") || paths::equalIgnoringCase(answer, "yes");
}

}  // namespace

CleanCommand::CleanCommand(CLI::App& application)
    : subcommand_(application.add_subcommand(
          "clean",
          "Move what can go to the Trash, after asking. Without --safe and --item\n"
          "that is what scan marks with ✓")),
      folder_(*subcommand_) {
  CLI::Option* safe =
      subcommand_->add_flag("--safe", isSafe_,
                            "Select what is safe beyond doubt: ignored by Git, or outside\n"
                            "any repository");
  subcommand_
      ->add_option("--item", items_,
                   "Select this item instead, by its path below FOLDER as scan prints\n"
                   "it; may be given again")
      ->allow_extra_args(false)
      ->option_text("PATH ...")
      ->excludes(safe);
  subcommand_->add_flag("--dry-run", isDryRun_, "Show what would be moved, and move nothing");
  subcommand_->add_flag("--yes", isConfirmed_, "Do not ask");
  subcommand_->add_flag("--json", isJson_, "Print one JSON document instead of text");
}

ExitStatus CleanCommand::run() const {
  if (mustAsk() && ::isatty(STDIN_FILENO) == 0) {
    std::cerr << "broomtide-cli: There is no terminal to ask on. Add --yes to clean without a "
                 "question, or --dry-run to see what would be moved.\n";
    return ExitStatus::wrongUsage;
  }
  const std::optional<std::string> root = folder_.root();
  if (!root) return ExitStatus::failed;
  Session session;
  ExitStatus status = session.scan(*root, folder_.mode());
  if (status == ExitStatus::done) status = select(session, *root);
  if (status != ExitStatus::done) return status;

  const Decision decision = decide(selectedRows(session.model()));
  // Until the report is out, so that Ctrl-C in the last moment does not hide what was moved.
  std::optional<Interruption> interruption;
  if (decision == Decision::clean) status = session.clean(interruption.emplace().token());
  report(session, *root, decision);
  const ExitStatus output = finishOutput();
  return status == ExitStatus::done ? output : status;
}

ExitStatus CleanCommand::select(Session& session, const std::string& root) const {
  if (isSafe_) session.selectSafeItems();
  if (items_.empty()) return ExitStatus::done;
  std::vector<std::string> identifiers;
  for (const std::string& item : items_) identifiers.push_back(paths::standardized(item));
  const std::optional<std::string> unknown = session.select(identifiers);
  if (!unknown) return ExitStatus::done;
  return fail(root, "A scan finds no item '" + *unknown +
                        "' here, so nothing was moved. broomtide-cli scan prints the paths.");
}

// Shows what is selected and asks. What a question is about stands where the question does.
CleanCommand::Decision CleanCommand::decide(const CandidateRows& selected) const {
  if (selected.empty()) return Decision::cancel;
  const bool isSeen = !isJson_ && (!mustAsk() || ::isatty(STDOUT_FILENO) != 0);
  if (mustAsk() || isSeen) {
    std::ostream& out = isSeen ? std::cout : std::cerr;
    const TerminalStyle style =
        TerminalStyle::forDescriptor(isSeen ? STDOUT_FILENO : STDERR_FILENO);
    writeCandidates(out, selected, style, Detail::facts);
    out << style(TerminalStyle::Role::heading, std::to_string(selected.size()) +
                                                   " item(s) totaling " +
                                                   formatByteCount(sumOfSizes(selected)))
        << '\n'
        << std::flush;
  }
  if (isDryRun_) return Decision::dryRun;
  if (isConfirmed_) return Decision::clean;
  std::cerr << messages::moveToTrash << " [y/N] " << std::flush;
  std::string answer;
  std::getline(std::cin, answer);
  if (std::cin.eof()) std::cerr << '\n';
  return isYes(answer) ? Decision::clean : Decision::cancel;
}

void CleanCommand::report(const Session& session, const std::string& root,
                          Decision decision) const {
  const AppModel& model = session.model();
  CleanReport report{.root = root,
                     .isDryRun = isDryRun_,
                     .moved = {},
                     .failures = {},
                     .isRecorded = decision == Decision::clean && session.isRecorded()};
  if (decision == Decision::dryRun) report.moved = selectedRows(model);
  if (decision == Decision::clean && model.cleanupResult()) {
    report.moved = rowsOf(model.cleanupResult()->moved);
    report.failures = model.cleanupResult()->failures;
  }
  if (isJson_) {
    writeJson(std::cout, report);
  } else if (decision != Decision::cancel) {
    writeText(std::cout, report, TerminalStyle::forDescriptor(STDOUT_FILENO));
  } else if (!selectedRows(model).empty()) {
    std::cout << "Nothing was moved.\n";
  } else {
    std::cout << "Nothing is selected, so nothing was moved.";
    if (!model.candidates().empty()) {
      std::cout << " A scan finds " << counted(model.candidates().size(), "item")
                << " to choose from with --item.";
    }
    std::cout << '\n';
  }
}

}  // namespace broomtide::cli
