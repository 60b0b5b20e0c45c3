#include "scanner/DefaultFileScanner.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "context/GitInspector.h"
#include "core/Paths.h"
#include "core/ScannerError.h"
#include "platform/UserFolders.h"
#include "scanner/CacheScan.h"
#include "scanner/ReportedScan.h"
#include "scanner/TreeScan.h"

namespace broomtide {

ScannerSettings ScannerSettings::forThisMachine() {
  return {.measuringThreads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 8),
          .git = GitInspector::executable(),
          .gitRunLimit = GitInspector::runLimit,
          .homeTrash = UserFolders::homeTrash()};
}

DefaultFileScanner::DefaultFileScanner(FileManager& fileManager, ScannerSettings settings)
    : fileManager_(fileManager), settings_(std::move(settings)) {}

ScanResult DefaultFileScanner::scan(const std::string& root, ScanMode mode, Date now,
                                    const UpdateFunction& onUpdate, std::stop_token stop) {
  if (stop.stop_requested()) throw CancellationError();
  const std::string folder = paths::standardized(root);
  validate(folder);
  const auto scan = [&](ScanReports& reports, const std::stop_token& stopping) {
    return mode == ScanMode::caches
               ? scanKnownCaches(folder, fileManager_, settings_, reports, stopping)
               : TreeScan(folder, mode, now, fileManager_, settings_, reports, stopping).run();
  };
  return runReporting(scan, onUpdate, stop);
}

void DefaultFileScanner::validate(const std::string& root) const {
  FileAttributes attributes;
  if (fileManager_.readAttributes(workingDirectory, root.c_str(), LinkPolicy::follow, attributes) ||
      !attributes.isFolder()) {
    throw ScannerError(ScannerError::Case::invalidRoot);
  }
  if (!fileManager_.isReadable(root)) throw ScannerError(ScannerError::Case::permissionDenied);
}

}  // namespace broomtide
