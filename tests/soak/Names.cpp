#include "soak/Names.h"

#include <array>
#include <filesystem>

namespace broomtide::soak {
namespace {

constexpr auto plainNames = std::to_array<const char*>(
    {"src", "lib", "app", "web", "core", "packages", "docs", "one", "two", "x", "y", "z"});
constexpr auto oddNames = std::to_array<const char*>({
    "line\nbreak",
    "tab\there",
    "\x1b[31mred",
    "\xff\xfe",
    "caf\xe9",
    "x\x80y",
    "\xf0\x9f\x98",
    "\xe6\x97\xa5\xe6\x9c\xac",
    "e\xcc\x81",
    "\xe2\x80\xae"
    "gpj",
    "100%",
    "%41%2F",
    "-dash",
    "--",
    "it's",
    "quote\"d",
    "back\\slash",
    "$(x)`x`",
    "*",
    "[x]",
    "#hash",
    " lead",
    "trail ",
    "...",
    "a.b",
    "gone (deleted)",
    "caf\xc3\xa9.2",
});
constexpr std::size_t longestName = 255;

std::string anyName(Random& random, std::size_t most) {
  if (random.chance(3)) return std::string(most, 'N');
  if (random.chance(2)) return std::string(most, '\xe9');
  return random.chance(45) ? random.oneOf(oddNames) : random.oneOf(plainNames);
}

}  // namespace

std::string freeName(const test::TemporaryTree& tree, const std::string& folder, Random& random,
                     const std::string& ending) {
  const auto isTaken = [&](const std::string& name) {
    return std::filesystem::exists(std::filesystem::symlink_status(tree.path(folder + '/' + name)));
  };
  std::string name = anyName(random, longestName - ending.size()) + ending;
  for (int number = 2; isTaken(name); ++number) name = std::to_string(number) + ending;
  return name;
}

}  // namespace broomtide::soak
