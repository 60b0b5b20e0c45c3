#include "soak/Disturbance.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>
#include <fstream>

#include "cleanup/Revalidation.h"
#include "soak/Contents.h"
#include "soak/Git.h"

namespace broomtide::soak {
namespace {

namespace fs = std::filesystem;

// What happens to one selected item. Each returns whether it could be done to it.
class Disturbance {
 public:
  Disturbance(const Plan& plan, const std::vector<std::string>& selected, const std::string& aside,
              const std::string& victim, Refusals& refusals)
      : plan_(plan),
        selected_(selected),
        aside_(aside),
        victim_(victim),
        path_(plan.path(victim)),
        artefact_(plan.artefacts.at(victim)),
        refusals_(refusals) {}

  bool changeDate() {
    const bool isShared = artefact_.kind == CandidateKind::file && fs::hard_link_count(path_) > 1;
    if (isShared) return false;  // others would change with it
    timespec date = dateOf(path_);
    date.tv_nsec = date.tv_nsec < 500'000'000 ? date.tv_nsec + 2'000'000 : 0;
    setDate(path_, date);
    return refuse(CleanupMessages::modified);
  }

  bool replaceWithSameDate() {
    if (!artefact_.isMovable) return false;
    const timespec date = dateOf(path_);
    fs::rename(path_, aside_);
    if (artefact_.kind == CandidateKind::file) {
      std::ofstream(path_) << "another";
    } else {
      fs::create_directory(path_);
    }
    setDate(path_, date);
    return refuse(CleanupMessages::replaced);
  }

  bool replaceByLinkInside() {
    if (!artefact_.isMovable) return false;
    const std::string moved = path_.substr(0, path_.rfind('/')) + "/moved aside";
    fs::rename(path_, moved);
    fs::create_symlink("moved aside", path_);
    return refuse(CleanupMessages::link);
  }

  bool replaceByLinkOutside() {
    if (!artefact_.isMovable) return false;
    fs::rename(path_, aside_);
    fs::create_symlink(aside_, path_);
    return refuse(CleanupMessages::outside);
  }

  bool takeAway() {
    if (!artefact_.isMovable) return false;
    fs::rename(path_, aside_);
    return refuse(CleanupMessages::gone);
  }

  bool track() {
    if (!artefact_.repository) return false;
    const std::string repository = plan_.path(*artefact_.repository);
    const std::string item = path_.substr(repository.size() + 1);
    const bool isFolder = artefact_.kind == CandidateKind::directory;
    runGit(repository, {"add", "-f", "--", isFolder ? item + '/' + Contents::sureName : item});
    return refuse(CleanupMessages::tracked);
  }

  bool stopIgnoring() {
    if (artefact_.gitStatus != GitItemStatus::ignored) return false;
    std::ofstream(plan_.ignoreFiles.at(*artefact_.repository));  // cuts it off
    for (const std::string& item : selected_) {
      const Artefact& other = plan_.artefacts.at(item);
      const bool isConcerned =
          other.repository == artefact_.repository && other.gitStatus == GitItemStatus::ignored;
      if (isConcerned) refusals_[item] = CleanupMessages::notIgnored;
    }
    return true;
  }

  bool moveProjectOutside() {
    if (!artefact_.project || artefact_.project->empty()) return false;
    const std::string project = plan_.path(*artefact_.project);
    std::error_code error;
    fs::rename(project, aside_, error);
    if (error) return false;  // its permissions are in the way
    fs::create_symlink(aside_, project);
    for (const std::string& item : selected_) {
      if (item.starts_with(*artefact_.project + '/')) refusals_[item] = CleanupMessages::outside;
    }
    return true;
  }

 private:
  bool refuse(std::string_view message) {
    refusals_[victim_] = message;
    return true;
  }

  static timespec dateOf(const std::string& path) {
    struct stat status {};
    ::lstat(path.c_str(), &status);
    return status.st_mtim;
  }

  static void setDate(const std::string& path, timespec date) {
    const std::array<timespec, 2> both{date, date};
    ::utimensat(AT_FDCWD, path.c_str(), both.data(), AT_SYMLINK_NOFOLLOW);
  }

  const Plan& plan_;
  const std::vector<std::string>& selected_;
  const std::string& aside_;
  const std::string victim_;
  const std::string path_;
  const Artefact& artefact_;
  Refusals& refusals_;
};

}  // namespace

Refusals refusalsOf(const Plan& plan, const std::vector<std::string>& selected) {
  Refusals refusals;
  for (const std::string& item : selected) {
    if (!plan.artefacts.at(item).isMovable) refusals[item] = CleanupMessages::notMoved;
  }
  return refusals;
}

void disturb(const Plan& plan, const std::vector<std::string>& selected, const std::string& aside,
             Random& random, Refusals& refusals) {
  constexpr std::array disturbances{
      &Disturbance::changeDate,
      &Disturbance::replaceWithSameDate,
      &Disturbance::replaceByLinkInside,
      &Disturbance::replaceByLinkOutside,
      &Disturbance::takeAway,
      &Disturbance::track,
      &Disturbance::stopIgnoring,
      &Disturbance::moveProjectOutside,
  };
  constexpr int mostTries = 50;  // there may be nothing that can be done
  bool isDone = false;
  for (int tries = 0; !isDone && tries < mostTries; ++tries) {
    const std::string& victim = random.oneOf(selected);
    Disturbance disturbance(plan, selected, aside, victim, refusals);
    isDone = (disturbance.*random.oneOf(disturbances))();
  }
}

}  // namespace broomtide::soak
