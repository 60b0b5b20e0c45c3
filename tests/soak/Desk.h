#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/AppModel.h"
#include "cli/MainLoop.h"

namespace broomtide::soak {

/// A person's work with the real engine: the app model that the programs make, one operation after
/// the other. Always used from the same thread. Every operation throws a Mismatch when the model
/// says that it failed.
class Desk final : private FolderPicking {
 public:
  /// The Trash and the history are those of the environment.
  Desk();

  const AppModel& model() const { return *model_; }

  /// Scans a folder, an absolute path, to the end.
  void scan(const std::string& folder, ScanMode mode);

  /// The same, after a scan of the folder that was replaced by this one while it ran.
  void scanTwice(const std::string& folder, ScanMode mode);

  /// Moves exactly these items to the Trash, and waits until the history is written and read.
  void clean(const std::vector<std::string>& identifiers);

  /// Reads the history.
  void loadHistory();

  /// Gives up all results.
  void returnHome() { model_->returnHome(); }

 private:
  std::optional<std::string> pickFolder(const FolderRequest& request) override;
  void requireNoError(const std::string& what) const;

  cli::MainLoop loop_;
  UnrestrictedAccess access_;
  std::string choice_;
  std::unique_ptr<AppModel> model_;
};

}  // namespace broomtide::soak
