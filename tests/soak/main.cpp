#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <limits>
#include <random>

#include "cli/Interruption.h"
#include "core/VisibleText.h"
#include "soak/Home.h"
#include "soak/Mismatch.h"
#include "soak/OwnRights.h"
#include "soak/Progress.h"
#include "soak/Round.h"

namespace broomtide::soak {
namespace {

struct Options {
  std::uint64_t seconds = 300;
  std::uint64_t rounds = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t seed = std::random_device()();
  std::uint64_t from = 0;  // the first round
};

class Soak {
 public:
  explicit Soak(const Options& options) : options_(options) {}

  // Runs rounds until they are over, somebody interrupts, or one of them fails. Returns whether all
  // went well.
  bool run(const std::stop_token& stop) {
    std::cout << "seed " << options_.seed << ", from round " << options_.from << std::endl;
    bool isWell = true;
    while (isWell && !stop.stop_requested() && !isOver()) {
      isWell = runRound(options_.from + figures_.rounds);
      progress_.afterRound(figures_, footprint_);
    }
    progress_.finish(figures_, footprint_, options_.seed, options_.from);
    return isWell && hasTriedSomething();
  }

 private:
  // Every few rounds there is something to move.
  bool hasTriedSomething() const {
    constexpr std::uint64_t fewRounds = 3;
    const bool hasTried = figures_.rounds < fewRounds || figures_.moved > 0;
    if (!hasTried) std::cout << "FAILED: nothing was moved in all these rounds" << std::endl;
    return hasTried;
  }

  bool isOver() const {
    return figures_.rounds == options_.rounds ||
           progress_.time() >= std::chrono::seconds(options_.seconds);
  }

  bool runRound(std::uint64_t number) {
    Round round(home_, options_.seed, number, figures_);
    try {
      round.run();
      ++figures_.rounds;
      footprint_.afterRound();
      require(!testing::Test::HasFailure(), "the tree could not be made or removed");
      return true;
    } catch (const std::exception& failure) {
      report(failure.what(), number, round);
      return false;
    }
  }

  void report(const std::string& reason, std::uint64_t number, Round& round) {
    round.keep();
    home_.keep();
    std::cout << "FAILED: seed " << options_.seed << ", round " << number << ": " << visible(reason)
              << "\n  kept: the tree in " << round.folder() << ", the Trash and the history in "
              << home_.folder() << "\n  again: scripts/soak --seed " << options_.seed << " --from "
              << number << std::endl;
  }

  const Options options_;
  Home home_;
  Figures figures_;
  Footprint footprint_;
  Progress progress_;
};

}  // namespace
}  // namespace broomtide::soak

int main(int argumentCount, char** arguments) {
  using namespace broomtide;
  soak::Options options;
  CLI::App application("Scans, cleans and puts back random trees.", "broomtide-soak");
  application.add_option("--seconds", options.seconds, "How long it may take; a round is finished");
  application.add_option("--rounds", options.rounds, "The most rounds");
  application.add_option("--seed", options.seed, "Which rounds");
  application.add_option("--from", options.from, "The number of the first round");
  CLI11_PARSE(application, argumentCount, arguments);
  try {
    soak::giveUpOverridingPermissions();
    const cli::Interruption interruption;
    return soak::Soak(options).run(interruption.token()) ? 0 : 1;
  } catch (const std::exception& failure) {
    std::cerr << "broomtide-soak: " << failure.what() << '\n';
    return 1;
  }
}
