// broomtide-bench-micro: what single look-ups and sums cost, apart from any file.

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "GivenServices.h"
#include "app/AppModel.h"
#include "cli/Session.h"
#include "context/GitSnapshot.h"
#include "context/ProjectDetector.h"
#include "rules/ScanRules.h"

namespace broomtide::bench {
namespace {

// What a scan asks of the name of every entry. Most names of a real tree match nothing.
void matchName(benchmark::State& state) {
  constexpr std::array<std::pair<std::string_view, CandidateKind>, 8> entries{{
      {"index.js", CandidateKind::file},
      {"components", CandidateKind::directory},
      {"README.md", CandidateKind::file},
      {"node_modules", CandidateKind::directory},
      {"lib", CandidateKind::directory},
      {"App.swift", CandidateKind::file},
      {"npm-debug.log", CandidateKind::file},
      {"a-rather-long-name-of-a-picture-somebody-took.jpeg", CandidateKind::file},
  }};
  const Date now = std::chrono::system_clock::now();
  std::size_t next = 0;
  while (state.KeepRunning()) {
    const auto& [name, kind] = entries[next++ % entries.size()];
    benchmark::DoNotOptimize(ScanRules::match(name, kind, ScanMode::project, now, now));
  }
}
BENCHMARK(matchName);

std::string numbered(std::string_view stem, std::size_t number) {
  return std::string(stem) + std::to_string(number);
}

// A repository with 500,000 tracked and 50,000 ignored paths.
GitSnapshot largeSnapshot() {
  std::string tracked;
  for (std::size_t number = 0; number < 500'000; ++number) {
    tracked += numbered("services/part", number / 500) + numbered("/src/file", number) + ".ts";
    tracked += '\0';
  }
  std::string ignored;
  for (std::size_t number = 0; number < 50'000; ++number) {
    ignored +=
        numbered("services/part", number / 50) + numbered("/packages/", number) + "/node_modules/";
    ignored += '\0';
  }
  return {.root = "/home/somebody/src/large",
          .trackedPaths = PathSet(std::move(tracked)),
          .ignoredPaths = PathSet(std::move(ignored)),
          .isAvailable = true};
}

void gitStatus(benchmark::State& state) {
  const GitSnapshot snapshot = largeSnapshot();
  std::vector<std::string> locations;
  for (std::size_t number = 0; number < 50'000; number += 7) {
    locations.push_back(snapshot.root + numbered("/services/part", number / 50) +
                        numbered("/packages/", number) + "/node_modules");
    locations.push_back(snapshot.root + numbered("/services/part", number / 50) + "/dist");
  }
  std::size_t next = 0;
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(snapshot.status(locations[next++ % locations.size()], true));
  }
}
BENCHMARK(gitStatus);

void readGitsAnswer(benchmark::State& state) {
  while (state.KeepRunning()) benchmark::DoNotOptimize(largeSnapshot());
}
BENCHMARK(readGitsAnswer)->Unit(benchmark::kMillisecond);

// An app model after a scan with 100,000 candidates.
class ScannedModel {
 public:
  ScannedModel() {
    model_.beginScan("/home/somebody/src", ScanMode::project, true);
    main_.runUntil([this] { return model_.route() == Route::results; });
  }

  AppModel& operator*() { return model_; }

 private:
  cli::MainLoop main_;
  NoPicker picker_;
  UnrestrictedAccess access_;
  AppModel model_{
      {.scanner = std::make_unique<GivenScanner>(100'000, 1),
       .trashManager = std::make_unique<NoTrash>(),
       .historyStore = std::make_unique<NoHistory>()},
      {.mainThread = main_, .folderPicker = picker_, .access = access_, .homeFolder = {}}};
};

void projectSummaries(benchmark::State& state) {
  ScannedModel model;
  while (state.KeepRunning()) benchmark::DoNotOptimize((*model).projectReclaimSummaries());
}
BENCHMARK(projectSummaries)->Unit(benchmark::kMillisecond);

// The last candidate, and the totals that the screen then shows.
void toggle(benchmark::State& state) {
  ScannedModel model;
  const std::string last = (*model).candidates().back().id();
  while (state.KeepRunning()) {
    (*model).toggleCandidate(last);
    benchmark::DoNotOptimize((*model).totals());
  }
}
BENCHMARK(toggle)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace broomtide::bench

BENCHMARK_MAIN();
