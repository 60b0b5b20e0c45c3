#include "soak/Home.h"

#include <cstdlib>
#include <filesystem>
#include <set>

#include "soak/Mismatch.h"

namespace broomtide::soak {
namespace {

std::set<std::string> namesIn(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.insert(entry.path().filename());
  }
  return names;
}

}  // namespace

Home::Home() : history_(tree_.path("data/Broomtide")) {
  tree_.file("rest/.config/settings", "precious");
  tree_.file("rest/photo", std::string(5000, 'p'));
  tree_.folder("data");
  rest_ = stateOf(tree_.path("rest"));
  ::setenv("HOME", tree_.path("rest").c_str(), 1);
  ::setenv("XDG_DATA_HOME", tree_.path("data").c_str(), 1);
  renewDesk();
}

void Home::checkRest(Figures& figures) const {
  requireSame(stateOf(tree_.path("rest")), rest_, "the home folder has changed", figures);
  requireEqual(namesIn(tree_.root()), {"data", "rest"}, "beside the home folder");
  for (const std::string& name : namesIn(tree_.path("data"))) {
    require(name == "Broomtide" || name == "Trash", "among the user's data is " + name);
  }
}

}  // namespace broomtide::soak
