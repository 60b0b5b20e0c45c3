// broomtide-bench-engine: takes times inside the engine that cannot be seen from outside a process.
//
//   scan    one scan: seconds to the first candidate, and to the end
//   git     nothing but Git's listings of every repository below the folder, as a scan runs them
//   cancel  scans that are asked to stop at moments spread over their whole length: how long the
//           slowest one takes to end then
//   clean   moves every candidate of a scan to the Trash and records that, as a cleanup does
//   bare    the same items with nothing but an information file and a rename each: what no Trash
//           can fall below

#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <stop_token>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "cleanup/DefaultTrashManager.h"
#include "cleanup/JSONHistoryStore.h"
#include "context/GitInspector.h"
#include "core/Paths.h"
#include "core/ServiceInterfaces.h"
#include "core/Uuid.h"
#include "scanner/DefaultFileScanner.h"
#include "trash/TrashFormat.h"

namespace {

using namespace broomtide;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

struct Options {
  std::string folder;
  ScanMode mode = ScanMode::project;
  std::size_t threads = ScannerSettings::forThisMachine().measuringThreads;
  int rounds = 40;
  std::string trash;
};

struct TimedScan {
  ScanResult result;
  Seconds toFirstCandidate{0};
  Seconds toEnd{0};
};

TimedScan scan(const Options& options, std::stop_token stop = {}) {
  ScannerSettings settings = ScannerSettings::forThisMachine();
  settings.measuringThreads = options.threads;
  DefaultFileScanner scanner(systemFileManager(), settings);
  TimedScan timed;
  const auto start = Clock::now();
  timed.result = scanner.scan(
      options.folder, options.mode, std::chrono::system_clock::now(),
      [&](const auto&, std::span<const ScanCandidate> candidates, std::size_t) {
        const bool isFirst = timed.toFirstCandidate == Seconds(0) && !candidates.empty();
        if (isFirst) timed.toFirstCandidate = Clock::now() - start;
      },
      std::move(stop));
  timed.toEnd = Clock::now() - start;
  return timed;
}

void timeScan(const Options& options) {
  const TimedScan timed = scan(options);
  std::printf("%zu candidates, first after %.4f s, end after %.4f s\n",
              timed.result.candidates.size(), timed.toFirstCandidate.count(), timed.toEnd.count());
}

std::vector<std::string> repositoriesBelow(const std::string& folder) {
  std::vector<std::string> roots;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().filename() == ".git") roots.push_back(entry.path().parent_path());
  }
  return roots;
}

void timeGit(const Options& options) {
  const std::vector<std::string> repositories = repositoriesBelow(options.folder);
  const auto start = Clock::now();
  const auto snapshots = GitInspector::inspect(repositories, {});
  std::printf("%zu repositories after %.4f s\n", snapshots.size(),
              Seconds(Clock::now() - start).count());
}

// How long a scan goes on that is asked to stop after `delay`; nothing when it ended before.
std::optional<Seconds> timeToStop(const Options& options, Seconds delay) {
  std::stop_source stopping;
  Clock::time_point asked;
  std::jthread impatient([&] {
    std::this_thread::sleep_for(delay);
    asked = Clock::now();
    stopping.request_stop();
  });
  try {
    scan(options, stopping.get_token());
    return std::nullopt;
  } catch (const CancellationError&) {
    return Clock::now() - asked;
  }
}

void timeCancelling(const Options& options) {
  scan(options);  // fills the caches of the system
  const Seconds whole = scan(options).toEnd;
  Seconds slowest{0};
  int cancelled = 0;
  for (int round = 0; round < options.rounds; ++round) {
    const auto taken = timeToStop(options, whole * round / options.rounds);
    if (!taken) continue;
    ++cancelled;
    slowest = std::max(slowest, *taken);
  }
  if (cancelled == 0) throw std::runtime_error("every scan ended before it could be cancelled");
  std::printf("%d of %d cancelled, the slowest after %.4f s\n", cancelled, options.rounds,
              slowest.count());
}

void printCleaned(std::size_t count, Clock::time_point start) {
  std::printf("%zu items after %.4f s\n", count, Seconds(Clock::now() - start).count());
}

void timeCleaning(const Options& options) {
  const std::vector<ScanCandidate> items = scan(options).result.candidates;
  DefaultTrashManager trashManager(
      systemFileManager(),
      [](const std::vector<std::string>& roots, const std::stop_token& stop) {
        return GitInspector::inspect(roots, stop);
      },
      options.trash);
  JSONHistoryStore history(paths::appending(options.trash, "history.json"), systemFileManager());

  const auto start = Clock::now();
  const CleanupResult result = trashManager.moveToTrash(items, options.folder, {});
  history.append({.id = newUuid(),
                  .date = std::chrono::system_clock::now(),
                  .rootPath = options.folder,
                  .movedCount = static_cast<std::int64_t>(result.moved.size()),
                  .movedBytes = 0,
                  .failures = result.failures});
  printCleaned(result.moved.size(), start);
  if (!result.failures.empty()) throw std::runtime_error(result.failures.front().message.text());
}

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

void moveBarely(const std::string& path, const std::string& trash, std::size_t number) {
  const std::string name = std::to_string(number);
  const std::string information = trash + "/info/" + name + ".trashinfo";
  const std::string text = trashInfo(path, std::chrono::system_clock::now());
  const int file = ::open(information.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (file < 0) fail(information);
  if (::write(file, text.data(), text.size()) < 0) fail(information);
  ::close(file);
  if (::rename(path.c_str(), (trash + "/files/" + name).c_str()) != 0) fail(path);
}

void timeBareMoves(const Options& options) {
  const std::vector<ScanCandidate> items = scan(options).result.candidates;
  for (const char* part : {"/info", "/files"}) {
    std::filesystem::create_directories(options.trash + part);
  }
  const auto start = Clock::now();
  for (std::size_t number = 0; number < items.size(); ++number) {
    moveBarely(items[number].url, options.trash, number);
  }
  printCleaned(items.size(), start);
}

// Reads the command line and does what it says.
int run(int argc, char** argv) {
  const std::map<std::string, void (*)(const Options&)> tasks{{"scan", timeScan},
                                                              {"git", timeGit},
                                                              {"cancel", timeCancelling},
                                                              {"clean", timeCleaning},
                                                              {"bare", timeBareMoves}};
  const std::map<std::string, ScanMode> modes{{"project", ScanMode::project},
                                              {"downloads", ScanMode::downloads},
                                              {"caches", ScanMode::caches}};
  Options options;
  std::string task;
  CLI::App application("Takes times inside the engine");
  application.add_option("TASK", task, "scan, git, cancel, clean or bare")
      ->required()
      ->check(CLI::IsMember(tasks));
  application.add_option("FOLDER", options.folder)->required()->check(CLI::ExistingDirectory);
  application.add_option("--mode", options.mode)->transform(CLI::CheckedTransformer(modes));
  application.add_option("--threads", options.threads, "Measuring threads")
      ->check(CLI::Range(1, 64));
  application.add_option("--rounds", options.rounds, "Scans to cancel")->check(CLI::Range(1, 1000));
  application.add_option("--trash", options.trash, "Where clean and bare move items");
  CLI11_PARSE(application, argc, argv);
  const bool needsTrash = task == "clean" || task == "bare";
  if (needsTrash && options.trash.empty()) throw std::runtime_error(task + " needs --trash FOLDER");
  options.folder = std::filesystem::absolute(options.folder);
  if (needsTrash) options.trash = std::filesystem::absolute(options.trash);
  tasks.at(task)(options);
  return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "broomtide-bench-engine: %s\n", error.what());
    return EXIT_FAILURE;
  }
}
