#include "context/ProjectDetector.h"

#include <algorithm>
#include <utility>

#include "core/Paths.h"
#include "core/Utf8.h"
#include "rules/ProjectManifests.h"
#include "rules/VersionControl.h"

namespace broomtide {
namespace {

bool isXcodeBundle(std::string_view name) {
  return std::ranges::any_of(xcodeBundleSuffixes,
                             [name](std::string_view suffix) { return name.ends_with(suffix); });
}

bool isInside(std::string_view path, std::string_view folder) {
  return folder.empty() || path == folder || paths::isBelow(path, folder);
}

// The paths with the longest first, in characters; equal ones keep their order.
void sortDeepestFirst(std::vector<std::string>& paths) {
  std::vector<std::pair<std::size_t, std::string>> measured;
  measured.reserve(paths.size());
  for (std::string& path : paths) {
    const std::size_t length = utf8::characterCount(path);
    measured.emplace_back(length, std::move(path));
  }
  std::ranges::stable_sort(measured, std::ranges::greater{},
                           &std::pair<std::size_t, std::string>::first);
  std::ranges::transform(measured, paths.begin(),
                         [](auto& item) { return std::move(item.second); });
}

}  // namespace

ProjectDetector::ProjectDetector(std::string root, RepositoryFunction onRepository)
    : root_(std::move(root)), onRepository_(std::move(onRepository)) {}

void ProjectDetector::enterFolder(std::string_view path) {
  folder_ = path;
  if (!isInBundle(path)) bundle_ = isXcodeBundle(path) ? path : std::string_view();
  if (bundle_.empty() && folderWithIssue_ == path) addRepository();
}

bool ProjectDetector::isInBundle(std::string_view path) const {
  return !bundle_.empty() && isInside(path, bundle_);
}

void ProjectDetector::addEntry(std::string_view name, EntryType type) {
  if (!bundle_.empty()) return;
  ++discovery_.entriesInspected;
  if (name == gitMark) {
    addRepository();  // of whatever kind it is: Git knows better, or nobody does
  } else if (const VersionControlSystem* system = versionControlSystem(name)) {
    addWorkingCopy(*system);
  } else if (type == EntryType::link || type == EntryType::other) {
    return;
  } else if (type == EntryType::folder) {
    if (isXcodeBundle(name)) addManifest(ProjectKind::swift, name);
  } else if (const auto kind = manifestKind(name); kind && type == EntryType::file) {
    addManifest(*kind, name);
  }
}

// A folder that only a lack of resources keeps closed may hold a repository, without which its
// tracked files would be taken for unknown ones; so that ends the walk.
void ProjectDetector::addIssue(std::string_view path, std::error_code error) {
  if (error == std::errc::too_many_files_open ||
      error == std::errc::too_many_files_open_in_system || error == std::errc::not_enough_memory) {
    throw std::system_error(error);
  }
  folderWithIssue_ = path;
  if (isXcodeBundle(path) || isInBundle(path)) return;
  discovery_.issues.push_back(ScanIssue::about(location(path), error.message()));
}

// The folder that was entered last, as a place of its own.
ProjectDetector::Place& ProjectDetector::place() {
  const Surroundings outside = around(folder_);
  const bool isKnown = !places_.empty() && places_.back().path == folder_;
  if (!isKnown) places_.push_back({.path = folder_, .around = outside});
  return places_.back();
}

void ProjectDetector::addRepository() {
  std::string root = location(folder_);
  if (!repositories_.empty() && repositories_.back().root == root) return;
  Place& here = place();
  here.around.repository =
      &repositories_.emplace_back(Repository{std::move(root), here.around.repository});
  if (here.project != nullptr) here.project->gitRoot = here.around.repository->root;
  onRepository_(here.around.repository->root);
}

// The mark of Git comes before those of the systems that use it, by name.
void ProjectDetector::addWorkingCopy(const VersionControlSystem& system) {
  const std::string root = location(folder_);
  if (system.usesGit && !repositories_.empty() && repositories_.back().root == root) return;
  addCaution({.pattern = messages::underVersionControl,
              .values = {nameValue(std::string(system.title)), nameValue(root)}});
}

void ProjectDetector::addCaution(Message reason) {
  Place& here = place();
  here.around.caution = &cautions_.emplace_back(Caution{std::move(reason), here.around.caution});
}

void ProjectDetector::addManifest(ProjectKind kind, std::string_view name) {
  Place& here = place();
  if (here.project == nullptr) {
    here.project = &projects_[location(folder_)];
    here.project->root = location(folder_);
    if (here.around.repository != nullptr) here.project->gitRoot = here.around.repository->root;
    here.around.project = here.project;
  }
  here.project->kinds.insert(kind);
  here.project->manifests.emplace_back(name);
}

Surroundings ProjectDetector::around(std::string_view path) {
  while (!places_.empty() && !isInside(path, places_.back().path)) places_.pop_back();
  return places_.empty() ? Surroundings() : places_.back().around;
}

ProjectDiscovery ProjectDetector::finish() {
  for (const Repository& repository : repositories_) discovery_.gitRoots.push_back(repository.root);
  sortDeepestFirst(discovery_.gitRoots);
  // The map holds the roots in byte order, which the stable sort keeps.
  std::vector<std::string> roots;
  roots.reserve(projects_.size());
  for (const auto& [root, project] : projects_) roots.push_back(root);
  sortDeepestFirst(roots);
  for (const std::string& root : roots) {
    ProjectContext& project = projects_.at(root);
    std::ranges::sort(project.manifests);
    discovery_.projects.push_back(project);
  }
  return std::move(discovery_);
}

std::string ProjectDetector::location(std::string_view path) const {
  return path.empty() ? root_ : paths::appending(root_, path);
}

}  // namespace broomtide
