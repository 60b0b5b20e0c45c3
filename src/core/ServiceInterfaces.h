#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

#include "core/Date.h"
#include "core/Enumerations.h"
#include "core/Messages.h"
#include "core/Records.h"

namespace broomtide {

/// A failure that stops a scan. `what()` is the text that people see, one of `messages`.
class ScannerError : public std::exception {
 public:
  enum class Case { invalidRoot, permissionDenied, wholeFileSystem };

  explicit ScannerError(Case failure) : failure_(failure) {}

  Case failure() const { return failure_; }
  const char* what() const noexcept override {
    switch (failure_) {
      case Case::invalidRoot:
        return messages::invalidRoot.data();
      case Case::permissionDenied:
        return messages::permissionDenied.data();
      case Case::wholeFileSystem:
        break;
    }
    return messages::wholeFileSystem.data();
  }

 private:
  Case failure_;
};

/// Thrown out of an operation whose stop token was asked to stop.
class CancellationError : public std::exception {
 public:
  const char* what() const noexcept override { return messages::operationCancelled.data(); }
};

/// A snapshot of a running scan. In project mode the folders outside artefacts are read twice, and
/// each reading counts. A cache scan counts the entries of each location on their own. The last
/// update leaves out the bytes, or for a cache scan the entries.
struct ScanProgress {
  std::int64_t entriesScanned = 0;    ///< file-system entries examined so far
  std::int64_t reclaimableBytes = 0;  ///< total size of the candidates found so far
  Message currentPath;                ///< what is being examined, or a phrase of the scanner

  bool operator==(const ScanProgress&) const = default;
};

/// What a finished scan returns.
struct ScanResult {
  std::vector<ScanCandidate> candidates;  ///< by safety, then largest first
  std::vector<ScanIssue> issues;          ///< in the order in which they arose
  std::vector<ProjectContext> projects;   ///< deepest first
};

/// One report of a running scan.
struct ScanUpdate {
  ScanProgress progress;
  std::size_t candidateCount = 0;  ///< how many candidates had been found by then
};

/// Receives the updates of a scan in their order, as many as came up since the call before, and
/// every candidate found so far, of which the first `unchanged` are those of the call before: all
/// of them, until the last call carries one update and the candidates sorted. The scanner calls it
/// from the thread that called scan() and waits for it to return. Updates and candidates stay valid
/// only during the call.
using UpdateFunction =
    std::function<void(std::span<const ScanUpdate> updates,
                       std::span<const ScanCandidate> candidates, std::size_t unchanged)>;

/// Finds disposable items below a folder.
class FileScanning {
 public:
  virtual ~FileScanning() = default;

  /// Scans `root`, an absolute path, and blocks until the scan has ended; call it from a worker
  /// thread. `now` is the reference time of rules about age. Throws ScannerError for a folder that
  /// cannot be scanned, CancellationError after `stop` was asked to stop, and whatever `onUpdate`
  /// throws.
  virtual ScanResult scan(const std::string& root, ScanMode mode, Date now,
                          const UpdateFunction& onUpdate, std::stop_token stop) = 0;
};

/// Moves candidates to the Trash after checking each one again.
class TrashManaging {
 public:
  virtual ~TrashManaging() = default;

  /// Handles the candidates in their order and blocks until all are done; call it from a worker
  /// thread. `root` is the scanned folder. Never throws: whatever keeps an item from being moved
  /// becomes a failure in the result. After `stop` was asked to stop, the remaining items are left
  /// alone.
  virtual CleanupResult moveToTrash(const std::vector<ScanCandidate>& candidates,
                                    const std::string& root, std::stop_token stop) noexcept = 0;
};

/// Keeps the completed cleanups.
class HistoryStoring {
 public:
  virtual ~HistoryStoring() = default;

  /// The entries that can be read, newest first. Never fails.
  virtual std::vector<CleanupHistoryEntry> load() noexcept = 0;

  /// Makes one more entry persistent. Throws std::system_error when that is not possible.
  virtual void append(const CleanupHistoryEntry& entry) = 0;
};

}  // namespace broomtide
