#include "app/AppModel.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <utility>

#include "app/FolderChoice.h"
#include "core/Paths.h"
#include "core/ServiceInterfaces.h"
#include "core/Uuid.h"

namespace broomtide {
namespace {

ScanProgress progressAt(Message label) {
  return {.entriesScanned = 0, .reclaimableBytes = 0, .currentPath = std::move(label)};
}

ScanProgress idleProgress() { return progressAt({messages::preparing}); }

Message scanErrorText(const std::exception& error) {
  const bool isCancelled = dynamic_cast<const CancellationError*>(&error) != nullptr;
  return isCancelled ? Message{messages::scanCancelled} : messageOf(error);
}

}  // namespace

AppModel::AppModel(Services services, Surroundings surroundings)
    : services_(std::move(services)),
      surroundings_(std::move(surroundings)),
      progress_(idleProgress()),
      life_(this, [](AppModel*) {}) {}

AppModel::~AppModel() = default;

std::shared_ptr<void> AppModel::observe(Observer observer) {
  return observers_.add(std::move(observer));
}

void AppModel::presentFolderPicker(std::optional<std::string> startingAt, ScanMode mode) {
  const FolderRequest request = FolderChoice::request(mode, std::move(startingAt));
  const std::optional<std::string> folder = surroundings_.folderPicker.pickFolder(request);
  if (!folder) return;
  if (mode == ScanMode::caches && !FolderChoice::containsKnownCacheLocation(*folder)) {
    setErrorMessage(FolderChoice::refusal(*folder, surroundings_.homeFolder));
    return;
  }
  giveAccessBack();
  beginScan(*folder, mode, true);
}

void AppModel::chooseDownloadsFolder() {
  const std::optional<std::string> ofDesktop = surroundings_.folderPicker.desktopDownloads();
  presentFolderPicker(FolderChoice::downloads(surroundings_.homeFolder, ofDesktop),
                      ScanMode::downloads);
}

void AppModel::beginScan(std::string root, ScanMode mode, bool renewAccess) {
  if (scanTask_) scanTask_->request_stop();
  activeScanID_ = newUuid();
  if (renewAccess) hasSecurityScopedAccess_ = surroundings_.access.startAccess(root);
  rootURL_ = std::move(root);
  scanMode_ = mode;
  clearResults(
      progressAt(bareName(std::string(paths::lastComponent(paths::standardized(*rootURL_))))));
  route_ = Route::scanning;
  change(Field::route);
  startScan(*activeScanID_);
  tellChanges();
}

void AppModel::startScan(const std::string& identifier) {
  const ModelLink link(surroundings_.mainThread, life_);
  const auto work = [link, identifier, root = *rootURL_, mode = scanMode_,
                     &scanner = *services_.scanner](const std::stop_token& stop) {
    try {
      ScanResult result = scanner.scan(
          root, mode, std::chrono::system_clock::now(),
          [&](std::span<const ScanUpdate> updates, std::span<const ScanCandidate> candidates,
              std::size_t unchanged) {
            link.postAndWait(
                [&](AppModel& model) {
                  model.takeUpdates(identifier, updates, candidates, unchanged);
                },
                stop);
          },
          stop);
      link.post([identifier, result = std::move(result)](AppModel& model) mutable {
        if (model.isCurrent(identifier)) model.finishScan(std::move(result));
      });
    } catch (const std::exception& error) {
      link.post([identifier, reason = scanErrorText(error)](AppModel& model) {
        if (model.isCurrent(identifier)) model.failScan(reason);
      });
    }
  };
  try {
    scanTask_ = tasks_.start(work);
  } catch (const std::exception& error) {
    failScan(messageOf(error));
  }
}

void AppModel::takeUpdates(const std::string& scanIdentifier, std::span<const ScanUpdate> updates,
                           std::span<const ScanCandidate> candidates, std::size_t unchanged) {
  for (const ScanUpdate& update : updates) {
    if (!isCurrent(scanIdentifier)) return;  // an observer may have ended it
    progress_ = update.progress;
    change(Field::progress);
    // Assigned one by one, candidates take over the memory of those that they replace.
    const std::size_t kept = std::min(candidates_.size(), update.candidateCount);
    for (; unchanged < kept; ++unchanged) candidates_[unchanged] = candidates[unchanged];
    candidates_.resize(kept);
    const std::span<const ScanCandidate> added =
        candidates.first(update.candidateCount).subspan(kept);
    candidates_.insert(candidates_.end(), added.begin(), added.end());
    unchanged = candidates_.size();
    change(Field::candidates);
    tellChanges();
  }
}

void AppModel::finishScan(ScanResult result) {
  activeScanID_.reset();
  scanTask_.reset();
  candidates_ = std::move(result.candidates);
  change(Field::candidates);
  scanIssues_ = std::move(result.issues);
  change(Field::scanIssues);
  projectContexts_ = std::move(result.projects);
  change(Field::projectContexts);
  setRoute(Route::results);
}

void AppModel::failScan(Message reason) {
  activeScanID_.reset();
  scanTask_.reset();
  giveAccessBack();
  route_ = Route::welcome;
  change(Field::route);
  setErrorMessage(std::move(reason));
}

void AppModel::returnHome() {
  activeScanID_.reset();
  if (scanTask_) scanTask_->request_stop();
  scanTask_.reset();
  giveAccessBack();
  rootURL_.reset();
  clearResults(idleProgress());
  setRoute(Route::welcome);
}

void AppModel::requestStop() {
  if (scanTask_) scanTask_->request_stop();
  if (cleanupTask_) cleanupTask_->request_stop();
}

void AppModel::setRoute(Route route) {
  route_ = route;
  change(Field::route);
  tellChanges();
}

void AppModel::clearErrorMessage() { setErrorMessage(std::nullopt); }

void AppModel::setErrorMessage(std::optional<Message> message) {
  errorMessage_ = std::move(message);
  change(Field::errorMessage);
  tellChanges();
}

void AppModel::clearResults(ScanProgress progress) {
  candidates_.clear();
  change(Field::candidates);
  scanIssues_.clear();
  change(Field::scanIssues);
  projectContexts_.clear();
  change(Field::projectContexts);
  cleanupResult_.reset();
  change(Field::cleanupResult);
  progress_ = std::move(progress);
  change(Field::progress);
}

void AppModel::giveAccessBack() {
  if (hasSecurityScopedAccess_ && rootURL_) surroundings_.access.stopAccess(*rootURL_);
  hasSecurityScopedAccess_ = false;
}

}  // namespace broomtide
