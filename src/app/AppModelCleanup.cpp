// The operations of the app model on what a scan has found.

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

#include "app/AppModel.h"
#include "core/Uuid.h"

namespace broomtide {
namespace {

CleanupHistoryEntry entryOf(const CleanupResult& result, const std::string& root) {
  return {.id = newUuid(),
          .date = std::chrono::system_clock::now(),
          .rootPath = root,
          .movedCount = static_cast<std::int64_t>(result.moved.size()),
          .movedBytes = result.movedBytes(),
          .failures = result.failures};
}

}  // namespace

std::vector<ScanCandidate> AppModel::selectedCandidates() const {
  return Selection::selected(candidates_);
}

std::vector<ProjectReclaimSummary> AppModel::projectReclaimSummaries() const {
  return Selection::projectSummaries(candidates_);
}

void AppModel::toggleCandidate(std::string_view id) {
  const auto found = std::ranges::find(candidates_, id, &ScanCandidate::id);
  if (found == candidates_.end()) return;
  found->isSelected = !found->isSelected;
  change(Field::candidates);
  tellChanges();
}

void AppModel::selectSafeItems() {
  for (ScanCandidate& candidate : candidates_) {
    candidate.isSelected = Selection::isSafeBeyondDoubt(candidate);
  }
  change(Field::candidates);
  tellChanges();
}

void AppModel::unselectAll() {
  for (ScanCandidate& candidate : candidates_) candidate.isSelected = false;
  change(Field::candidates);
  tellChanges();
}

void AppModel::showConfirmation() {
  if (std::ranges::any_of(candidates_, &ScanCandidate::isSelected)) setRoute(Route::confirmation);
}

void AppModel::cleanSelectedItems() {
  if (!rootURL_ || isCleaning_) return;
  std::vector<ScanCandidate> selected = selectedCandidates();
  if (selected.empty()) return;
  isCleaning_ = true;
  change(Field::isCleaning);
  startCleanup(std::move(selected));
  tellChanges();
}

// What was moved is recorded even when the model is on its way out and takes no notice any more.
void AppModel::startCleanup(std::vector<ScanCandidate> selected) {
  const ModelLink link(surroundings_.mainThread, life_);
  auto work = [link, selected = std::move(selected), root = *rootURL_,
               &services = services_](const std::stop_token& stop) {
    CleanupResult result = services.trashManager->moveToTrash(selected, root, stop);
    try {
      const CleanupHistoryEntry entry = entryOf(result, root);
      link.post([result = std::move(result)](AppModel& model) mutable {
        model.finishCleanup(std::move(result));
      });
      services.historyStore->append(entry);
      link.post([history = services.historyStore->load()](AppModel& model) mutable {
        model.setHistory(std::move(history));
        model.tellChanges();
      });
    } catch (const std::exception&) {
      link.post([](AppModel& model) { model.setErrorMessage(Message{messages::historyNotSaved}); });
    }
  };
  try {
    cleanupTask_ = tasks_.start(std::move(work));
  } catch (const std::exception& error) {
    isCleaning_ = false;
    change(Field::isCleaning);
    setErrorMessage(messageOf(error));
  }
}

void AppModel::finishCleanup(CleanupResult result) {
  cleanupTask_.reset();
  cleanupResult_ = std::move(result);
  change(Field::cleanupResult);
  isCleaning_ = false;
  change(Field::isCleaning);
  setRoute(Route::summary);
}

void AppModel::showHistory() {
  const ModelLink link(surroundings_.mainThread, life_);
  try {
    tasks_.start([link, &store = *services_.historyStore](const std::stop_token&) {
      link.post([history = store.load()](AppModel& model) mutable {
        model.setHistory(std::move(history));
        model.setRoute(Route::history);
      });
    });
  } catch (const std::exception& error) {
    setErrorMessage(messageOf(error));
  }
}

void AppModel::setHistory(std::vector<CleanupHistoryEntry> history) {
  history_ = std::move(history);
  change(Field::history);
}

void AppModel::backFromHistory() { setRoute(cleanupResult_ ? Route::summary : Route::welcome); }

}  // namespace broomtide
