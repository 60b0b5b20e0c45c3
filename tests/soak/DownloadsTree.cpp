#include "soak/DownloadsTree.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <optional>

#include "soak/Names.h"

namespace broomtide::soak {
namespace {

namespace fs = std::filesystem;
using Days = std::chrono::duration<std::int64_t, std::ratio<86'400>>;

// What a download is told by, and how old it must be to be offered; nothing for one that never is.
struct Kind {
  const char* prefix;
  const char* ending;
  std::optional<std::size_t> days;
};
constexpr auto kinds = std::to_array<Kind>({
    {"", ".dmg", 7},
    {"", ".pkg", 7},
    {"", ".zip", 30},
    {"", ".tar.gz", 30},
    {"", ".RAR", 30},
    {"Screenshot ", ".png", 30},
    {"Screen Recording ", ".mov", 30},
    {"", ".csv", 0},
    {"", ".xlsx", 0},
    {"", ".Pdf", 0},
    {"", ".png", std::nullopt},
    {"", ".zip.part", std::nullopt},
    {"", ".tgz", std::nullopt},
});
constexpr std::size_t oldest = 4000;
constexpr int deepest = 3;

class DownloadsTree {
 public:
  DownloadsTree(const test::TemporaryTree& tree, const std::string& name, Plan& plan,
                Random& random, Contents& contents)
      : tree_(tree), name_(name), plan_(plan), random_(random), contents_(contents) {}

  void addFolder(const std::string& place, int depth) {
    tree_.folder(place);
    const bool isReadOnly = random_.chance(5);
    for (std::size_t left = 2 + random_.below(8); left > 0; --left) addDownload(place, !isReadOnly);
    if (random_.chance(30)) tree_.folder(place + "/folder.zip");
    if (random_.chance(30)) tree_.link(tree_.path(Contents::sharedPlace), place + "/link.pdf");
    if (random_.chance(10)) addUnreadable(place);
    if (isReadOnly) contents_.lock(place, 0555);
    if (depth == deepest) return;
    for (std::size_t left = random_.below(3); left > 0; --left) {
      addFolder(place + '/' + freeName(tree_, place, random_), depth + 1);
    }
  }

 private:
  void addDownload(const std::string& place, bool isMovable) {
    const Kind& kind = random_.oneOf(kinds);
    const bool isOld = random_.chance(60);
    const std::string first = place + '/' + nameFor(kind, place);
    contents_.fileOfItsOwn(first);
    setAge(first, isOld ? kind.days.value_or(0) + 1 + random_.below(oldest)
                        : random_.below(kind.days.value_or(oldest) + 1));
    const bool isOffered = kind.days && (isOld || kind.days == 0);
    note(first, isOffered, isMovable);
    if (!random_.chance(10)) return;
    const std::string second = place + '/' + nameFor(kind, place);
    fs::create_hard_link(tree_.path(first), tree_.path(second));
    note(second, isOffered, isMovable);
  }

  // After a prefix there is no room for the longest names, so that a number follows.
  std::string nameFor(const Kind& kind, const std::string& place) {
    const std::string prefix = kind.prefix;
    if (prefix.empty()) return freeName(tree_, place, random_, kind.ending);
    return prefix + std::to_string(++screenshots_) + kind.ending;
  }

  void note(const std::string& place, bool isOffered, bool isMovable) {
    plan_.artefacts.emplace(
        place.substr(name_.size() + 1),
        Artefact{.kind = CandidateKind::file, .isOffered = isOffered, .isMovable = isMovable});
  }

  // In whole days and half of one, so that nothing comes of age during the round.
  void setAge(const std::string& place, std::size_t days) {
    const auto age = Days(days) - std::chrono::hours(days == 0 ? 0 : 12);
    fs::last_write_time(tree_.path(place), fs::file_time_type::clock::now() - age);
  }

  void addUnreadable(const std::string& place) {
    const std::string folder = place + '/' + freeName(tree_, place, random_);
    tree_.file(folder + "/old.pdf", "nobody sees it");
    contents_.lock(folder, random_.chance(50) ? 0111 : 0);
    plan_.closed.insert(folder.substr(name_.size() + 1));
    plan_.unreadable.insert(folder.substr(name_.size() + 1));
  }

  const test::TemporaryTree& tree_;
  const std::string& name_;
  Plan& plan_;
  Random& random_;
  Contents& contents_;
  int screenshots_ = 0;
};

}  // namespace

void buildDownloadsTree(const test::TemporaryTree& tree, const std::string& name, Plan& plan,
                        Random& random, Contents& contents) {
  DownloadsTree(tree, name, plan, random, contents).addFolder(name, 0);
}

}  // namespace broomtide::soak
