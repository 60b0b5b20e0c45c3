#include "scanner/FolderEntrance.h"

#include <cstddef>
#include <utility>

#include "context/FolderSurroundings.h"
#include "core/Paths.h"
#include "trash/TrashFormat.h"

namespace broomtide {

FolderEntrance::FolderEntrance(FileManager& fileManager, ScanMode mode, const std::string& root,
                               const std::vector<std::string>& homes, const TrashPlaces& trashes,
                               ProjectDetector& projects)
    : fileManager_(fileManager), mode_(mode), root_(root), homes_(homes), projects_(projects) {
  if (trashes.hold(fileManager, paths::appending(root, "item"))) return;
  around_ =
      mode == ScanMode::project ? cautionsIn(fileManager, root, homes) : std::vector<Message>();
}

FolderEntrance::Verdict FolderEntrance::enter(const DirectoryEnumerator& entries) {
  entries_ = &entries;
  Marks marks;
  entries.forEachInFolder(
      [&marks](std::string_view name, EntryType type) { marks.add(name, type); });
  if (marks.isGitStore() || isTrash() || (isTop() && !around_)) return Verdict::passOver;
  if (mode_ != ScanMode::project) return Verdict::enter;
  if (!isTop() && isInstalled(marks)) return Verdict::passOver;
  if (!isTop() && isGenerated(marks)) return Verdict::offer;

  projects_.enterFolder(entries.folderPath());
  if (isTop()) {
    // What is around the scanned folder counts as if the walk had come from there.
    for (std::size_t index = around_->size(); index > 0; --index) {
      projects_.addCaution(std::move((*around_)[index - 1]));
    }
  }
  entries.forEachInFolder(
      [this](std::string_view name, EntryType type) { projects_.addEntry(name, type); });
  if (!isTop()) addCautions(marks);
  return Verdict::enter;
}

std::string FolderEntrance::place() const {
  return isTop() ? root_ : paths::appending(root_, entries_->folderPath());
}

std::string_view FolderEntrance::name() const {
  return paths::lastComponent(isTop() ? std::string_view(root_) : entries_->folderPath());
}

// Not for the scanned folder.
std::string_view FolderEntrance::nameOfParent() const {
  const std::string_view path = entries_->folderPath();
  const bool isBelowTop = path.find('/') == path.npos;
  return paths::lastComponent(isBelowTop ? std::string_view(root_) : paths::enclosingFolder(path));
}

// Whether the folder is a Trash by what is in it, wherever it lies.
bool FolderEntrance::isTrash() const {
  if (name() != trashOfHome) return false;
  int parts = 0;
  entries_->forEachInFolder([&parts](std::string_view name, EntryType type) {
    const bool isPart = name == trashFiles || name == trashInformation;
    if (isPart && type == EntryType::folder) ++parts;
  });
  return parts == 2;
}

bool FolderEntrance::isInstalled(const Marks& marks) {
  const bool mayBelong = marks.has(Marks::pythonEnvironment);
  const bool belongs =
      mayBelong && (projects_.around(entries_->folderPath()).project != nullptr || isProject());
  return marks.isInstalled(belongs) || (marks.mayBeExtension(nameOfParent()) &&
                                        isEditorExtension(fileManager_, entries_->folder()));
}

bool FolderEntrance::isGenerated(const Marks& marks) {
  if (!marks.mayBeGenerated() || isProject()) return false;
  proof_ = buildProof(fileManager_, entries_->folder(), place(), marks, Proofs::all);
  return proof_ && proof_->rule->policy.accepts(projects_.around(entries_->folderPath()).project);
}

// Whether the folder is a project or a working copy.
bool FolderEntrance::isProject() const {
  bool isFound = false;
  entries_->forEachInFolder([&isFound](std::string_view name, EntryType type) {
    isFound = isFound || isOfProject(name, type);
  });
  return isFound;
}

void FolderEntrance::addCautions(const Marks& marks) {
  const bool isEnvironment = marks.has(Marks::pythonEnvironment);
  if (!isEnvironment && !name().starts_with('.')) return;
  const std::string place = this->place();
  if (isEnvironment) projects_.addCaution(naming(messages::insideInstalled, place));
  if (isHiddenInHome(paths::enclosingFolder(place), name(), homes_)) {
    projects_.addCaution(naming(messages::insideHiddenFolder, place));
  }
}

}  // namespace broomtide
