#include "soak/HomeTree.h"

#include <array>

#include "soak/Names.h"

namespace broomtide::soak {
namespace {

constexpr auto wholeCaches = std::to_array<const char*>(
    {".npm/_cacache", ".cargo/registry", ".gradle/caches", ".m2/repository", "Library/Caches/pip",
     "Library/Caches/go-build", "Library/Caches/Yarn", "Library/Developer/CoreSimulator/Caches"});
constexpr auto cachesOfChildren = std::to_array<const char*>(
    {"Library/Developer/Xcode/DerivedData", "Library/Developer/Xcode/iOS DeviceSupport"});

class HomeTree {
 public:
  HomeTree(const test::TemporaryTree& tree, const std::string& name, Plan& plan, Random& random,
           Contents& contents)
      : tree_(tree), name_(name), plan_(plan), random_(random), contents_(contents) {}

  void build() {
    contents_.fill(name_ + "/Documents");
    contents_.fill(name_ + "/node_modules");
    tree_.folder(name_ + "/Library/Caches/Homebrew");  // one at least is always there
    for (const std::string cache : wholeCaches) {
      if (random_.chance(60)) {
        addCache(cache, Artefact{});
      } else if (random_.chance(20)) {
        tree_.link(tree_.path("outside"), name_ + '/' + cache);
      }
    }
    for (const std::string cache : cachesOfChildren) {
      tree_.folder(name_ + '/' + cache);
      for (std::size_t left = random_.below(5); left > 0; --left) addChild(cache);
    }
  }

 private:
  void addChild(const std::string& cache) {
    const std::string name = freeName(tree_, name_ + '/' + cache, random_);
    const std::string path = cache + '/' + name;
    if (random_.chance(10)) {
      contents_.file(name_ + '/' + path);
    } else if (random_.chance(10)) {
      tree_.link("..", name_ + '/' + path);
    } else {
      Artefact artefact;
      artefact.isOffered = !name.starts_with('.');
      addCache(path, artefact);
    }
  }

  void addCache(const std::string& path, Artefact artefact) {
    const std::string place = name_ + '/' + path;
    random_.chance(15) ? contents_.fillWithNothing(place) : contents_.fill(place);
    contents_.setDate(place);
    if (random_.chance(8)) {
      contents_.lock(place, random_.chance(50) ? 0555 : 0);
      artefact.isMovable = false;
    }
    plan_.artefacts.emplace(path, artefact);
  }

  const test::TemporaryTree& tree_;
  const std::string& name_;
  Plan& plan_;
  Random& random_;
  Contents& contents_;
};

}  // namespace

void buildHomeTree(const test::TemporaryTree& tree, const std::string& name, Plan& plan,
                   Random& random, Contents& contents) {
  HomeTree(tree, name, plan, random, contents).build();
}

}  // namespace broomtide::soak
