#include "soak/Contents.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>

#include "soak/Names.h"

namespace broomtide::soak {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::size_t, 9> sizes{0, 0, 1, 100, 4096, 4097, 8192, 20'000, 70'000};
constexpr std::uintmax_t sparseSize = std::uintmax_t{32} << 20U;
constexpr std::array<mode_t, 3> lockedModes{0, 0111, 0444};
constexpr std::array<const char*, 6> targets{"nowhere", ".", "..", "../..", "sure", "/dev/null"};
constexpr std::array<timespec, 6> dates{{{0, 0},
                                         {-1, 999'999'999},
                                         {1'700'000'000, 1},
                                         {1'700'000'000, 12'345'678},
                                         {951'782'400, 0},
                                         {4'000'000'000, 5}}};

}  // namespace

Contents::Contents(const test::TemporaryTree& tree, Random& random, std::vector<Lock>& locks)
    : tree_(tree), random_(random), locks_(locks) {
  tree_.file(sharedPlace, std::string(30'000, 's'));
}

void Contents::fill(const std::string& place, int depth) {
  tree_.folder(place);
  tree_.file(place + '/' + sureName, std::string(random_.oneOf(sizes), 'a'));
  for (std::size_t left = random_.below(5); left > 0; --left) {
    addEntry(place + '/' + freeName(tree_, place, random_), depth);
  }
}

void Contents::addEntry(const std::string& place, int depth) {
  constexpr int deepest = 3;
  const std::size_t roll = random_.below(100);
  if (roll < 22 && depth < deepest) {
    fill(place, depth + 1);
    if (roll < 4) lock(place, random_.oneOf(lockedModes));
  } else if (roll < 32) {
    link(place);
  } else if (roll < 36) {
    tree_.pipe(place);
  } else if (roll < 46) {
    const std::string folder(fs::path(tree_.path(place)).parent_path());
    fs::create_hard_link(folder + '/' + sureName, tree_.path(place));
  } else if (roll < 48) {
    addChain(place);
  } else if (roll < 50) {
    addMany(place);
  } else {
    file(place);
  }
}

void Contents::fileOfItsOwn(const std::string& place) {
  const std::size_t size = random_.oneOf(sizes);
  tree_.file(place, std::string(size, static_cast<char>('a' + random_.below(26))));
  if (random_.chance(4)) fs::resize_file(tree_.path(place), sparseSize);
}

void Contents::file(const std::string& place) {
  if (random_.chance(8)) {
    fs::create_hard_link(tree_.path(sharedPlace), tree_.path(place));
  } else {
    fileOfItsOwn(place);
  }
}

void Contents::fillWithNothing(const std::string& place) {
  tree_.folder(place + "/empty folder");
  tree_.file(place + "/empty");
  tree_.link("empty", place + "/link");
}

void Contents::setDate(const std::string& place) {
  if (!random_.chance(30)) return;
  const timespec date = random_.oneOf(dates);
  const std::array<timespec, 2> both{date, date};
  ::utimensat(AT_FDCWD, tree_.path(place).c_str(), both.data(), AT_SYMLINK_NOFOLLOW);
}

// More levels than a walk has descriptors for.
void Contents::addChain(const std::string& place) {
  std::string deep = place;
  for (std::size_t left = 20 + random_.below(100); left > 0; --left) deep += "/d";
  tree_.file(deep + "/end", std::string(random_.oneOf(sizes), 'e'));
}

// More entries than lie between two updates of a scan.
void Contents::addMany(const std::string& place) {
  for (std::size_t left = 120 + random_.below(80); left > 0; --left) {
    tree_.file(place + '/' + std::to_string(left), left % 3 == 0 ? "x" : "");
  }
}

void Contents::link(const std::string& place) {
  const bool leadsAway = random_.chance(30);
  tree_.link(leadsAway ? tree_.path(sharedPlace) : random_.oneOf(targets), place);
}

}  // namespace broomtide::soak
