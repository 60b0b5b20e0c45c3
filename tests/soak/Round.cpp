#include "soak/Round.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>

#include "soak/CleanupCheck.h"
#include "soak/Contents.h"
#include "soak/Disturbance.h"
#include "soak/DownloadsTree.h"
#include "soak/HomeTree.h"
#include "soak/Mismatch.h"
#include "soak/Names.h"
#include "soak/ProjectTree.h"
#include "soak/TreeState.h"

namespace broomtide::soak {
namespace {

namespace fs = std::filesystem;

using enum ScanMode;
constexpr std::array modes{project, caches, downloads, project, project};

}  // namespace

void Round::run() {
  build();
  const TreeState made = stateOf(tree_.root());
  const Expectation expected = scan();
  figures_.candidates += expected.offers.size();
  requireSame(stateOf(tree_.root()), made, "the scan has changed something", figures_);
  const std::vector<std::string> selected = select();
  if (!selected.empty()) clean(expected, selected);
  home_.checkRest(figures_);
  home_.desk().returnHome();
  home_.history().startAnewWhenLong();
  if (random_.chance(10)) home_.renewDesk();
}

void Round::build() {
  plan_.mode = modes[number_ % modes.size()];
  const std::string name = freeName(tree_, ".", random_);
  Contents contents(tree_, random_, plan_.locks);
  switch (plan_.mode) {
    case project:
      ProjectTree(tree_, name, plan_, random_, contents).build();
      break;
    case caches:
      buildHomeTree(tree_, name, plan_, random_, contents);
      break;
    case downloads:
      buildDownloadsTree(tree_, name, plan_, random_, contents);
      break;
  }
  plan_.root = fs::canonical(tree_.path(name));
  plan_.scanned = plan_.root;
  if (random_.chance(20)) {
    tree_.link(name, "way in");
    plan_.scanned = fs::canonical(tree_.root()).native() + "/way in";
  }
  applyLocks();
}

// The inner ones first, while the outer ones let through.
void Round::applyLocks() {
  std::ranges::stable_sort(plan_.locks, std::ranges::greater(),
                           [](const Lock& lock) { return lock.path.size(); });
  for (const Lock& lock : plan_.locks) ::chmod(lock.path.c_str(), lock.mode);
}

// Some file systems settle late how much room a file takes; a scan meanwhile proves nothing.
Expectation Round::scan() {
  constexpr int mostTries = 5;
  for (int tries = 0; tries < mostTries; ++tries) {
    const Expectation before = expectationOf(plan_);
    random_.chance(15) ? home_.desk().scanTwice(plan_.scanned, plan_.mode)
                       : home_.desk().scan(plan_.scanned, plan_.mode);
    Expectation after = expectationOf(plan_);
    if (before != after) continue;
    checkScan(home_.desk().model(), plan_, after);
    return after;
  }
  throw Mismatch("the sizes of the files do not settle");
}

std::vector<std::string> Round::select() {
  const std::array<unsigned, 4> portions{10, 40, 80, 100};
  const unsigned portion = random_.oneOf(portions);
  std::vector<std::string> selected;
  for (const ScanCandidate& candidate : home_.desk().model().candidates()) {
    if (random_.chance(portion)) selected.push_back(candidate.relativePath);
  }
  return selected;
}

void Round::clean(const Expectation& expected, const std::vector<std::string>& selected) {
  Refusals refusals = refusalsOf(plan_, selected);
  const std::string aside = fs::canonical(tree_.root()).native() + "/aside";
  if (random_.chance(60)) disturb(plan_, selected, aside, random_, refusals);
  const TreeState before = stateOf(tree_.root());
  const Date begin = std::chrono::system_clock::now();
  Desk& desk = home_.desk();
  {
    const CleanupCheck check(plan_, expected, selected, refusals, home_.trash(), figures_);
    desk.clean(selected);
    check.checkResult(desk.model().cleanupResult().value());
    check.checkTrash();
    check.restore();
  }
  requireSame(stateOf(tree_.root()), before, "not everything is back as it was", figures_);
  desk.loadHistory();
  home_.history().check(desk.model(), begin);
}

}  // namespace broomtide::soak
