#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "soak/Figures.h"
#include "soak/Home.h"
#include "soak/Plan.h"
#include "soak/Random.h"
#include "soak/ScanCheck.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// One tree: made, scanned, cleaned in part, put back. Each step is compared with what it must do.
class Round {
 public:
  /// The home and the figures must outlive the round.
  Round(Home& home, std::uint64_t seed, std::uint64_t number, Figures& figures)
      : home_(home), figures_(figures), random_(seed, number), number_(number) {}

  /// Throws a Mismatch about the first thing that is wrong.
  void run();

  /// Leaves the tree where it is, for people to look at.
  void keep() { tree_.keep(); }
  const std::string& folder() const { return tree_.root(); }

 private:
  void build();
  void applyLocks();
  Expectation scan();
  std::vector<std::string> select();
  void clean(const Expectation& expected, const std::vector<std::string>& selected);

  Home& home_;
  Figures& figures_;
  Random random_;
  const std::uint64_t number_;
  test::TemporaryTree tree_;
  Plan plan_;
};

}  // namespace broomtide::soak
