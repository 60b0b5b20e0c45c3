#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "app/ModelLink.h"
#include "app/Observers.h"
#include "app/Selection.h"
#include "app/Surroundings.h"
#include "app/TaskGroup.h"
#include "core/ServiceInterfaces.h"

namespace broomtide {

/// Which screen is shown.
enum class Route { welcome, scanning, results, confirmation, summary, history };

/// Everything that the screens show, and every operation they offer: choosing a folder, one scan at
/// a time, the selection, the cleanup, the history. Lives on the main thread, where every operation
/// is called and every change happens; the services work on threads of their own. No operation
/// throws: what people must see of a failure becomes `errorMessage`.
class AppModel {
 public:
  /// The fields that observers are told about.
  enum class Field {
    route,
    candidates,
    progress,
    scanIssues,
    projectContexts,
    cleanupResult,
    history,
    errorMessage,
    isCleaning,
  };

  /// Called on the main thread for each change of a field, in the order of the changes, at the end
  /// of the operation that made them.
  using Observer = std::function<void(Field)>;

  /// What the model works with, for its whole life.
  struct Services {
    std::unique_ptr<FileScanning> scanner;
    std::unique_ptr<TrashManaging> trashManager;
    std::unique_ptr<HistoryStoring> historyStore;
  };

  /// Where the model lives. What is referred to must outlive the model; the main thread may still
  /// run what was posted to it afterwards.
  struct Surroundings {
    MainThread& mainThread;
    FolderPicking& folderPicker;
    AccessGranting& access;
    std::optional<std::string> homeFolder;  ///< of the real user; nothing when it is unknown
  };

  /// Starts no scan and reads no file.
  AppModel(Services services, Surroundings surroundings);

  /// Asks what is under way to stop and waits for it. A cleanup finishes its current item and its
  /// history entry is written.
  ~AppModel();

  AppModel(const AppModel&) = delete;
  AppModel& operator=(const AppModel&) = delete;

  /// Tells `observer` of every change until the returned handle is given up.
  [[nodiscard]] std::shared_ptr<void> observe(Observer observer);

  Route route() const { return route_; }
  const std::vector<ScanCandidate>& candidates() const { return candidates_; }
  const ScanProgress& progress() const { return progress_; }
  const std::vector<ScanIssue>& scanIssues() const { return scanIssues_; }
  const std::vector<ProjectContext>& projectContexts() const { return projectContexts_; }
  const std::optional<CleanupResult>& cleanupResult() const { return cleanupResult_; }
  const std::vector<CleanupHistoryEntry>& history() const { return history_; }
  const std::optional<Message>& errorMessage() const { return errorMessage_; }
  bool isCleaning() const { return isCleaning_; }

  /// The folder of the current or last scan, an absolute path.
  const std::optional<std::string>& rootURL() const { return rootURL_; }
  /// The mode of the current or last scan.
  ScanMode scanMode() const { return scanMode_; }

  /// The home folder of the real user; nothing when it is unknown.
  const std::optional<std::string>& homeFolder() const { return surroundings_.homeFolder; }

  /// Lets people choose a folder and scans it. A choice for `caches` that holds no known cache
  /// location sets `errorMessage` instead.
  void presentFolderPicker(std::optional<std::string> startingAt, ScanMode mode);

  /// The same for the Downloads folder, starting at the one in the home folder if there is one,
  /// else at what the desktop calls Downloads, if that is there and not the home folder itself.
  void chooseDownloadsFolder();

  /// Scans the folder at an absolute path in place of any scan under way. `renewAccess` asks for
  /// access to it, which a folder that was scanned before still has.
  void beginScan(std::string root, ScanMode mode, bool renewAccess);

  /// Gives up any scan, its results and the access to its folder, and shows the start screen. A
  /// cleanup goes on.
  void returnHome();

  /// Asks whatever is under way to stop and returns at once. A current scan then ends with a
  /// message; a cleanup finishes its current item, leaves the others alone and is recorded.
  void requestStop();

  /// Goes to another screen without any condition.
  void setRoute(Route route);

  /// The alert was dismissed.
  void clearErrorMessage();

  /// In the order of the candidates.
  std::vector<ScanCandidate> selectedCandidates() const;
  std::int64_t selectedBytes() const { return totals().selectedBytes; }
  std::int64_t totalBytes() const { return totals().totalBytes; }
  Selection::Totals totals() const { return Selection::totals(candidates_); }

  /// The totals of each project, selected or not, the largest first.
  std::vector<ProjectReclaimSummary> projectReclaimSummaries() const;

  /// Inverts the selection of the first candidate with this identifier.
  void toggleCandidate(std::string_view id);

  /// Selects exactly what is safe beyond doubt.
  void selectSafeItems();

  void unselectAll();

  /// Goes to the confirmation if anything is selected.
  void showConfirmation();

  /// Moves what is selected to the Trash and records it in the history, in the background; then
  /// shows the summary. Does nothing without a selection or while a cleanup runs.
  void cleanSelectedItems();

  /// Shows the history as soon as it has been loaded, in the background.
  void showHistory();

  /// To the summary of the last cleanup if it is still held, else to the start screen.
  void backFromHistory();

 private:
  void change(Field field) { observers_.note(field); }
  void tellChanges() { observers_.tell(); }

  void clearResults(ScanProgress progress);
  void giveAccessBack();
  void startScan(const std::string& identifier);
  void takeUpdates(const std::string& scanIdentifier, std::span<const ScanUpdate> updates,
                   std::span<const ScanCandidate> candidates, std::size_t unchanged);
  void finishScan(ScanResult result);
  void failScan(Message reason);
  bool isCurrent(const std::string& scanIdentifier) const {
    return activeScanID_ == scanIdentifier;
  }

  void startCleanup(std::vector<ScanCandidate> selected);
  void finishCleanup(CleanupResult result);
  void setHistory(std::vector<CleanupHistoryEntry> history);
  void setErrorMessage(std::optional<Message> message);

  const Services services_;
  const Surroundings surroundings_;

  Route route_ = Route::welcome;
  std::vector<ScanCandidate> candidates_;
  ScanProgress progress_;
  std::vector<ScanIssue> scanIssues_;
  std::vector<ProjectContext> projectContexts_;
  std::optional<CleanupResult> cleanupResult_;
  std::vector<CleanupHistoryEntry> history_;
  std::optional<Message> errorMessage_;
  bool isCleaning_ = false;

  std::optional<std::string> rootURL_;
  ScanMode scanMode_ = ScanMode::project;
  std::optional<std::stop_source> scanTask_;
  std::optional<std::stop_source> cleanupTask_;
  std::optional<std::string> activeScanID_;  // of the scan whose outcome is awaited and wanted
  bool hasSecurityScopedAccess_ = false;     // access to `rootURL_` is to be given back

  Observers<Field> observers_;
  std::shared_ptr<AppModel> life_;  // owns nothing; expires with the model
  TaskGroup tasks_;                 // the last member, so that tasks end before what they use
};

}  // namespace broomtide
