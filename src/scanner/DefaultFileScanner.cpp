#include "scanner/DefaultFileScanner.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "context/GitCommand.h"
#include "core/Paths.h"
#include "core/ServiceInterfaces.h"
#include "platform/PathSafety.h"
#include "platform/UserFolders.h"
#include "scanner/CacheScan.h"
#include "scanner/ScanReports.h"
#include "scanner/TreeScan.h"

namespace broomtide {

ScannerSettings ScannerSettings::forThisMachine() {
  return {.measuringThreads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, 8),
          .git = GitCommand::executable(),
          .gitRunLimit = GitCommand::runLimit,
          .homeTrash = UserFolders::homeTrash(),
          .homes = UserFolders::homes()};
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
  return runOnThread(scan, onUpdate, stop);
}

void DefaultFileScanner::validate(const std::string& root) const {
  FileAttributes attributes;
  if (fileManager_.readAttributes(workingDirectory, root.c_str(), LinkPolicy::follow, attributes) ||
      !attributes.isFolder()) {
    throw ScannerError(ScannerError::Case::invalidRoot);
  }
  FileAttributes whole;
  const bool isWhole =
      !fileManager_.readAttributes(workingDirectory, "/", LinkPolicy::follow, whole) &&
      FileIdentity::token(attributes) == FileIdentity::token(whole);
  if (isWhole) throw ScannerError(ScannerError::Case::wholeFileSystem);
  if (!fileManager_.isReadable(root)) throw ScannerError(ScannerError::Case::permissionDenied);
}

}  // namespace broomtide
