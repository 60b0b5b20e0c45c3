#include "soak/ProjectTree.h"

#include <filesystem>

#include "soak/Names.h"

namespace broomtide::soak {
namespace {

namespace fs = std::filesystem;

constexpr int deepest = 2;
constexpr mode_t readOnly = 0555;

std::string lastName(const std::string& place) { return place.substr(place.rfind('/') + 1); }

}  // namespace

void ProjectTree::addFolder(const std::string& place, Surroundings around, int depth) {
  tree_.folder(place);
  tree_.file(place + "/README", "read me");
  const bool hasManifest = random_.chance(75);
  if (hasManifest) addManifest(place, around);
  // The repository of a project is asked about all of it, whatever other ones are in it.
  if (random_.chance(40) && (hasManifest || !around.repository)) addRepository(place, around);
  // Of a folder in which it tracks nothing, Git does not tell what it ignores there.
  if (around.repository) around.repository->track(place + "/README");
  around.isReadOnly = random_.chance(4);
  addArtefacts(place, around);
  if (random_.chance(40)) addLookalikes(place);
  if (random_.chance(8)) addUnreadable(place);
  if (around.isReadOnly) contents_.lock(place, readOnly);
  if (depth == deepest) return;
  for (std::size_t left = random_.below(3) + (depth == 0 ? 2 : 0); left > 0; --left) {
    addFolder(place + '/' + freeName(tree_, place, random_), around, depth + 1);
  }
}

void ProjectTree::addManifest(const std::string& place, Surroundings& around) {
  around.ecosystem = &random_.oneOf(ecosystems);
  tree_.file(place + '/' + std::string(around.ecosystem->manifest), "{}");
  around.project = relative(place);
  plan_.projects.insert(relative(place));
}

void ProjectTree::addRepository(const std::string& place, Surroundings& around) {
  around.repository = std::make_shared<Repository>(tree_, place, random_);
  plan_.ignoreFiles[relative(place)] = around.repository->ignoreFile();
  plan_.closed.insert(relative(place + "/.git"));
}

void ProjectTree::addArtefacts(const std::string& place, const Surroundings& around) {
  using enum CandidateKind;
  addFolders(place, around);
  const bool isInProject = around.ecosystem != nullptr;
  const std::string common = place + '/' + std::string(random_.oneOf(commonFolders));
  const std::string log = place + '/' + freeName(tree_, place, random_, ".log");
  const std::string metadata = place + '/' + std::string(metadataFile);
  if (random_.chance(40)) addArtefact(common, directory, isInProject, around);
  if (random_.chance(30)) addArtefact(log, file, isInProject, around);
  if (random_.chance(10)) addArtefact(metadata, file, true, around);
  if (around.repository) around.repository->addTracked();
}

// What belongs to a kind of project, and what does not.
void ProjectTree::addFolders(const std::string& place, const Surroundings& around) {
  const auto add = [&](std::string_view name, bool isKnownHere) {
    addArtefact(place + '/' + std::string(name), CandidateKind::directory, isKnownHere, around);
  };
  if (around.ecosystem == nullptr) {
    if (random_.chance(60)) add(random_.oneOf(looseFolders), true);
    return;
  }
  for (const std::string_view name : around.ecosystem->folders) {
    if (random_.chance(50)) add(name, true);
  }
  if (random_.chance(30)) add(random_.oneOf(around.ecosystem->foreign), false);
}

void ProjectTree::addArtefact(const std::string& place, CandidateKind kind, bool isKnownHere,
                              const Surroundings& around) {
  if (plan_.artefacts.contains(relative(place))) return;
  Artefact artefact = planned(place, kind, isKnownHere, around);
  makeArtefact(place, artefact);
  if (artefact.gitStatus == GitItemStatus::tracked) {
    const bool isFolder = kind == CandidateKind::directory;
    around.repository->track(isFolder ? place + '/' + Contents::sureName : place);
  }
  plan_.artefacts.emplace(relative(place), artefact);
}

Artefact ProjectTree::planned(const std::string& place, CandidateKind kind, bool isKnownHere,
                              const Surroundings& around) {
  using enum GitItemStatus;
  Artefact artefact{.kind = kind, .isMovable = !around.isReadOnly, .project = around.project};
  if (around.repository) {
    artefact.repository = relative(around.repository->place());
    artefact.gitStatus = around.repository->ignores(lastName(place)) ? ignored : untracked;
    if (random_.chance(20)) artefact.gitStatus = tracked;
  }
  artefact.isOffered = isKnownHere && artefact.gitStatus != tracked;
  return artefact;
}

// Git does not tell of empty folders, and of one that nobody can read it tells what it likes, so
// that these lie outside repositories.
void ProjectTree::makeArtefact(const std::string& place, Artefact& artefact) {
  if (artefact.kind == CandidateKind::file) {
    contents_.file(place);
  } else if (artefact.repository) {
    contents_.fill(place);
  } else if (random_.chance(12)) {
    contents_.fillWithNothing(place);
  } else {
    contents_.fill(place);
    if (random_.chance(6)) {
      contents_.lock(place, random_.chance(50) ? readOnly : 0);
      artefact.isMovable = false;
    }
  }
  contents_.setDate(place);
  if (artefact.kind == CandidateKind::directory) plan_.closed.insert(relative(place));
}

void ProjectTree::addLookalikes(const std::string& place) {
  const std::string sensitive(random_.oneOf(sensitiveFolders));
  contents_.fill(place + '/' + sensitive + "/node_modules");
  plan_.closed.insert(relative(place + '/' + sensitive));
  tree_.file(place + "/Node_Modules/file", "not this one");
  tree_.file(place + "/.env.log", "secret");
  const std::string fake = place + '/' + std::string(random_.oneOf(looseFolders));
  if (fs::exists(fs::symlink_status(tree_.path(fake)))) return;
  random_.chance(50) ? tree_.link("/", fake) : static_cast<void>(tree_.file(fake, "no folder"));
}

void ProjectTree::addUnreadable(const std::string& place) {
  const std::string folder = place + '/' + freeName(tree_, place, random_);
  contents_.fill(folder);
  contents_.lock(folder, random_.chance(50) ? 0111 : 0);
  plan_.closed.insert(relative(folder));
  plan_.unreadable.insert(relative(folder));
}

std::string ProjectTree::relative(const std::string& place) const {
  return place == name_ ? std::string() : place.substr(name_.size() + 1);
}

}  // namespace broomtide::soak
