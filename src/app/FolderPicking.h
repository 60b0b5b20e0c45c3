#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/Enumerations.h"

namespace broomtide {

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

}  // namespace broomtide
