#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

#include "app/AppModel.h"
#include "app/Surroundings.h"
#include "cli/Failure.h"

namespace broomtide::cli {

/// Makes the thread that runs the loop the main thread.
class MainLoop final : public MainThread {
 public:
  void post(std::function<void()> work) override;

  /// Runs what is posted until `isDone`, which is asked before each piece of work, says so.
  void runUntil(const std::function<bool()>& isDone);

 private:
  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> work_;
};

/// The app model, used from the command line: each operation blocks the calling thread, which must
/// always be the same one, until it is over. Reasons for failure go to standard error.
class Session final : private FolderPicking {
 public:
  Session();

  const AppModel& model() const { return *model_; }

  /// Scans a folder, an absolute path, with a progress line. Ctrl-C ends the scan.
  ExitStatus scan(const std::string& root, ScanMode mode);

  /// Makes the selection exactly what "Select Safe" selects.
  void selectSafeItems() { model_->selectSafeItems(); }

  /// Makes the selection exactly the candidates with these identifiers. When there is none for one
  /// of them, that one is returned.
  std::optional<std::string> select(const std::vector<std::string>& identifiers);

  /// Cleans what is selected and records it. A request to stop lets the current item finish.
  ExitStatus clean(const std::stop_token& stop);

  /// Whether the last cleanup is in the history.
  bool isRecorded() const { return isRecorded_; }

  /// Reads the history.
  void loadHistory();

 private:
  std::optional<std::string> pickFolder(const FolderRequest& request) override;
  void begin(const std::string& root, ScanMode mode);

  MainLoop loop_;
  UnrestrictedAccess access_;
  std::optional<std::string> choice_;  // what the folder picker answers
  bool isRecorded_ = false;
  std::unique_ptr<AppModel> model_;
};

}  // namespace broomtide::cli
