#include "context/ProjectDetector.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <system_error>
#include <utility>

#include "core/Paths.h"
#include "core/ScannerError.h"
#include "core/Utf8.h"
#include "platform/DirectoryEnumerator.h"
#include "rules/ScanRules.h"

namespace broomtide {
namespace {

using enum ProjectKind;

struct Manifest {
  std::string_view name;
  ProjectKind kind;
};

// In byte order of the names, for binary search.
constexpr std::array manifestNames = std::to_array<Manifest>({
    {"build.gradle", java},
    {"build.gradle.kts", java},
    {"cargo.toml", rust},
    {"cmakelists.txt", cmake},
    {"composer.json", php},
    {"deno.json", javascript},
    {"deno.jsonc", javascript},
    {"gemfile", ruby},
    {"go.mod", go},
    {"go.work", go},
    {"mix.exs", elixir},
    {"package.json", javascript},
    {"package.swift", swift},
    {"pipfile", python},
    {"pnpm-workspace.yaml", javascript},
    {"poetry.lock", python},
    {"pom.xml", java},
    {"pubspec.yaml", flutter},
    {"pyproject.toml", python},
    {"requirements.txt", python},
    {"settings.gradle", java},
    {"settings.gradle.kts", java},
    {"setup.py", python},
    {"stack.yaml", haskell},
});
static_assert(std::ranges::is_sorted(manifestNames, {}, &Manifest::name));

constexpr std::array manifestSuffixes = std::to_array<Manifest>({
    {".csproj", dotnet},
    {".fsproj", dotnet},
    {".vbproj", dotnet},
    {".sln", dotnet},
    {".cabal", haskell},
    {".tf", terraform},
});

bool endsIgnoringCase(std::string_view name, std::string_view suffix) {
  return name.size() >= suffix.size() &&
         paths::equalIgnoringCase(name.substr(name.size() - suffix.size()), suffix);
}

bool isXcodeBundle(std::string_view name) {
  return name.ends_with(".xcodeproj") || name.ends_with(".xcworkspace");
}

// A project under construction.
struct Draft {
  std::set<ProjectKind> kinds;
  std::set<std::string> manifests;
};

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

// One pass over a tree.
class Discoverer {
 public:
  Discoverer(std::string root, FileManager& fileManager,
             const ProjectDetector::RepositoryFunction& onRepository, std::stop_token stop)
      : root_(std::move(root)),
        onRepository_(onRepository),
        entries_(
            fileManager, DirectoryEnumerator::Order::foldersAfter,
            [this](std::string_view relativePath, std::error_code error) {
              addIssue(relativePath, error);
            },
            stop),
        stop_(std::move(stop)) {}

  ProjectDiscovery discover(FileDescriptor top) {
    entries_.begin(std::move(top));
    while (entries_.next()) {
      if (stop_.stop_requested()) throw CancellationError();
      ++discovery_.entriesInspected;
      visit();
    }
    finish();
    return std::move(discovery_);
  }

 private:
  // A folder that only a lack of resources keeps closed may hold a repository that the walk, a
  // moment later, would not know of; so that ends the scan.
  void addIssue(std::string_view relativePath, std::error_code error) {
    if (error == std::errc::too_many_files_open ||
        error == std::errc::too_many_files_open_in_system ||
        error == std::errc::not_enough_memory) {
      throw std::system_error(error);
    }
    const std::string path = relativePath.empty() ? root_ : paths::appending(root_, relativePath);
    discovery_.issues.push_back(ScanIssue::about(path, error.message()));
  }

  void visit() {
    const std::string_view name = entries_.name();
    const EntryType type = entries_.type();
    if (type != EntryType::file && type != EntryType::folder) return;
    if (name == ".git") {
      entries_.skipDescendants();
      discovery_.gitRoots.push_back(folder());
      onRepository_(discovery_.gitRoots.back());
    } else if (type == EntryType::folder) {
      visitFolder(name);
    } else if (const auto kind = ProjectDetector::manifestKind(name)) {
      addManifest(*kind, name);
    }
  }

  void visitFolder(std::string_view name) {
    if (ScanRules::isSensitiveDirectory(name) || ScanRules::isKnownArtifactDirectory(name)) {
      entries_.skipDescendants();
    } else if (isXcodeBundle(name)) {
      entries_.skipDescendants();
      addManifest(swift, name);
    }
  }

  void addManifest(ProjectKind kind, std::string_view name) {
    Draft& draft = drafts_[folder()];
    draft.kinds.insert(kind);
    draft.manifests.emplace(name);
  }

  std::string folder() const {
    const std::string_view path = entries_.folderPath();
    return path.empty() ? root_ : paths::appending(root_, path);
  }

  void finish() {
    sortDeepestFirst(discovery_.gitRoots);
    const ProjectLookup repositories(discovery_);

    // The map holds the roots in byte order, which the stable sort keeps.
    std::vector<std::string> roots;
    roots.reserve(drafts_.size());
    for (const auto& [root, draft] : drafts_) roots.push_back(root);
    sortDeepestFirst(roots);
    for (std::string& root : roots) {
      Draft& draft = drafts_.at(root);
      const std::string* gitRoot = repositories.nearestGitRoot(root);
      discovery_.projects.push_back({.root = std::move(root),
                                     .kinds = std::move(draft.kinds),
                                     .manifests = {draft.manifests.begin(), draft.manifests.end()},
                                     .gitRoot = gitRoot ? std::optional(*gitRoot) : std::nullopt});
    }
  }

  const std::string root_;
  const ProjectDetector::RepositoryFunction& onRepository_;
  DirectoryEnumerator entries_;
  const std::stop_token stop_;
  std::map<std::string, Draft> drafts_;
  ProjectDiscovery discovery_;
};

}  // namespace

ProjectDiscovery ProjectDetector::discover(const std::string& root, FileManager& fileManager,
                                           std::stop_token stop,
                                           const RepositoryFunction& onRepository) {
  FileDescriptor top;
  if (fileManager.openFolder(workingDirectory, root.c_str(), LinkPolicy::follow, top)) return {};
  return Discoverer(root, fileManager, onRepository, std::move(stop)).discover(std::move(top));
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

}  // namespace broomtide
