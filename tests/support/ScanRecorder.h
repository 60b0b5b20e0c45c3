#pragma once

#include <string>
#include <vector>

#include "core/ServiceInterfaces.h"
#include "platform/FileManager.h"

namespace broomtide::test {

/// Runs scans on two measuring threads and keeps what they report.
class ScanRecorder {
 public:
  explicit ScanRecorder(FileManager& fileManager = systemFileManager())
      : fileManager_(fileManager) {}

  /// The user's own Trash is `share/Trash` below the root, and the user's home `home`.
  ScanResult scan(const std::string& root, ScanMode mode = ScanMode::project,
                  Date now = std::chrono::system_clock::now());

  /// Each update as "entries bytes label (number of candidates)".
  std::vector<std::string> updates;

 private:
  FileManager& fileManager_;
};

/// The identity of the item at an absolute path. Throws std::system_error when nothing is there.
std::string identityOf(const std::string& path);

/// What there is at a path below a folder, as a scan of that folder would offer it, but without its
/// size and without what it was judged by. Throws std::system_error when nothing is there.
ScanCandidate candidateBelow(const std::string& root, const std::string& relative);

/// The relative paths of the candidates, in order.
std::vector<std::string> pathsOf(const ScanResult& result);

/// Each issue as "path below the root: message".
std::vector<std::string> issuesOf(const ScanResult& result, const std::string& root);

}  // namespace broomtide::test
