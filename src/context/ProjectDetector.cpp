#include "context/ProjectDetector.h"

#include <algorithm>
#include <utility>

#include "context/GitSnapshot.h"
#include "core/Paths.h"
#include "core/Utf8.h"
#include "rules/ProjectManifests.h"

namespace broomtide {
namespace {

bool endsIgnoringCase(std::string_view name, std::string_view suffix) {
  return name.size() >= suffix.size() &&
         paths::equalIgnoringCase(name.substr(name.size() - suffix.size()), suffix);
}

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
  if (type == EntryType::link || type == EntryType::other) return;
  if (name == ".git") {
    addRepository();  // also when it cannot be examined: Git knows better
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

void ProjectDetector::addRepository() {
  std::string root = location(folder_);
  if (!discovery_.gitRoots.empty() && discovery_.gitRoots.back() == root) return;
  discovery_.gitRoots.push_back(std::move(root));
  onRepository_(discovery_.gitRoots.back());
}

void ProjectDetector::addManifest(ProjectKind kind, std::string_view name) {
  const std::string root = location(folder_);
  ProjectContext& project = projects_[root];
  if (project.root.empty()) {
    project.root = root;
    enclosing_.push_back({.path = folder_, .project = &project});
  }
  project.kinds.insert(kind);
  project.manifests.emplace_back(name);
}

const ProjectContext* ProjectDetector::nearestProject(std::string_view path) {
  while (!enclosing_.empty() && !isInside(path, enclosing_.back().path)) enclosing_.pop_back();
  return enclosing_.empty() ? nullptr : enclosing_.back().project;
}

ProjectDiscovery ProjectDetector::finish() {
  sortDeepestFirst(discovery_.gitRoots);
  const ProjectLookup repositories(discovery_);

  // The map holds the roots in byte order, which the stable sort keeps.
  std::vector<std::string> roots;
  roots.reserve(projects_.size());
  for (const auto& [root, project] : projects_) roots.push_back(root);
  sortDeepestFirst(roots);
  for (const std::string& root : roots) {
    ProjectContext& project = projects_.at(root);
    std::ranges::sort(project.manifests);
    if (const std::string* gitRoot = repositories.nearestGitRoot(root)) project.gitRoot = *gitRoot;
    discovery_.projects.push_back(std::move(project));
  }
  return std::move(discovery_);
}

std::string ProjectDetector::location(std::string_view path) const {
  return path.empty() ? root_ : paths::appending(root_, path);
}

std::optional<ProjectKind> ProjectDetector::manifestKind(std::string_view name) {
  const paths::ShortLowercase lowered(name);
  const auto found = std::ranges::lower_bound(manifestNames, lowered.text(), {}, &Manifest::name);
  if (found != manifestNames.end() && found->name == lowered.text()) return found->kind;
  for (const Manifest& suffix : manifestSuffixes) {
    if (endsIgnoringCase(name, suffix.name)) return suffix.kind;
  }
  return std::nullopt;
}

ProjectLookup::ProjectLookup(const ProjectDiscovery& discovery) : discovery_(discovery) {
  for (std::size_t index = 0; index < discovery.projects.size(); ++index) {
    projects_.add(discovery.projects[index].root, index);
  }
  for (std::size_t index = 0; index < discovery.gitRoots.size(); ++index) {
    gitRoots_.add(discovery.gitRoots[index], index);
  }
}

const ProjectContext* ProjectLookup::nearestProject(std::string_view path) const {
  const auto index = projects_.nearest(path);
  return index ? &discovery_.projects[*index] : nullptr;
}

const std::string* ProjectLookup::nearestGitRoot(std::string_view path) const {
  const auto index = gitRoots_.nearest(path);
  return index ? &discovery_.gitRoots[*index] : nullptr;
}

std::vector<std::string> ProjectLookup::otherGitRoots(std::string_view path,
                                                      const std::string& own) const {
  std::vector<std::string> others;
  for (const std::string* root = nearestGitRoot(path); root != nullptr;
       root = nearestGitRoot(paths::enclosingFolder(*root))) {
    if (*root != own) others.push_back(*root);
    const bool isLast = paths::enclosingFolder(*root) == *root;
    if (isLast || others.size() > mostOtherRepositories) break;
  }
  return others;
}

}  // namespace broomtide
