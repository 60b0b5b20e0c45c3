#include "soak/Repository.h"

#include <array>

#include "soak/Ecosystems.h"
#include "soak/Git.h"

namespace broomtide::soak {
namespace {

constexpr std::string_view logs = "*.log";

std::set<std::string_view> someNames(Random& random) {
  std::set<std::string_view> chosen;
  const auto choose = [&](const auto& names) {
    for (const std::string_view name : names) {
      if (random.chance(60)) chosen.insert(name);
    }
  };
  for (const Ecosystem& ecosystem : ecosystems) choose(ecosystem.folders);
  choose(commonFolders);
  choose(looseFolders);
  choose(std::array{logs, metadataFile});
  return chosen;
}

}  // namespace

Repository::Repository(const test::TemporaryTree& tree, std::string place, Random& random)
    : tree_(tree), place_(std::move(place)), ignored_(someNames(random)) {
  std::string patterns;
  for (const std::string_view pattern : ignored_) patterns.append(pattern) += '\n';
  runGit(tree_.path(place_), {"init", "-q", "--template="});
  const bool isPrivate = random.chance(30);
  ignoreFile_ = tree_.file(place_ + (isPrivate ? "/.git/info/exclude" : "/.gitignore"), patterns);
  runGit(tree_.path(place_), {"add", "-A"});
}

bool Repository::ignores(const std::string& name) const {
  return ignored_.contains(name) || (name.ends_with(".log") && ignored_.contains(logs));
}

void Repository::addTracked() {
  if (tracked_.empty()) return;
  std::vector<std::string> arguments{"add", "-f", "--"};
  arguments.insert(arguments.end(), tracked_.begin(), tracked_.end());
  runGit(tree_.path(place_), arguments);
  tracked_.clear();
}

}  // namespace broomtide::soak
