#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/Enumerations.h"
#include "platform/Interruption.h"

namespace broomtide {

/// The thread that owns the app model and all that people see.
class MainThread {
 public:
  virtual ~MainThread() = default;

  /// Has `work` run on the main thread, after everything posted before. May be called from any
  /// thread and never waits.
  virtual void post(std::function<void()> work) = 0;
};

/// How a folder picker presents itself. It lets people choose one existing folder, no file, and
/// make no new folder.
struct FolderRequest {
  ScanMode mode = ScanMode::project;
  std::optional<std::string> startingAt;  ///< where it opens; an absolute path
  std::string_view title;
  std::string_view prompt;  ///< on the button that confirms
  std::string_view message;
};

/// Lets people choose the folder of a scan.
class FolderPicking {
 public:
  virtual ~FolderPicking() = default;

  /// The chosen folder as an absolute path, nothing when people decided otherwise. Called on the
  /// main thread, which it may keep for as long as people need.
  virtual std::optional<std::string> pickFolder(const FolderRequest& request) = 0;

  /// The absolute path of what the desktop calls the Downloads folder, which need not exist;
  /// nothing without a desktop. Called on the main thread.
  virtual std::optional<std::string> desktopDownloads() const { return std::nullopt; }
};

/// The right to read and change a folder, on systems where the user's choice of it gives that
/// right. Called on the main thread.
class AccessGranting {
 public:
  virtual ~AccessGranting() = default;

  /// Whether the right was granted, so that it must be given back.
  virtual bool startAccess(const std::string& folder) = 0;

  /// Gives a granted right back.
  virtual void stopAccess(const std::string& folder) = 0;
};

/// For systems without such rights: always granted.
class UnrestrictedAccess final : public AccessGranting {
 public:
  bool startAccess(const std::string&) override { return true; }
  void stopAccess(const std::string&) override {}
};

}  // namespace broomtide
