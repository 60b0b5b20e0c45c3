#pragma once

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "app/AppModel.h"

namespace broomtide::test {

/// A main thread that does nothing until a test cranks it.
class HandCrankedThread final : public MainThread {
 public:
  void post(std::function<void()> work) override {
    const std::lock_guard lock(mutex_);
    work_.push_back(std::move(work));
    posted_.notify_one();
  }

  /// Runs what comes until `isDone`.
  void runUntil(const std::function<bool()>& isDone) {
    while (!isDone()) runNext();
  }

  /// Runs one piece of work, and waits for it if there is none.
  void runNext() {
    std::unique_lock lock(mutex_);
    posted_.wait(lock, [this] { return !work_.empty(); });
    const auto next = std::move(work_.front());
    work_.pop_front();
    lock.unlock();
    next();
  }

  /// Waits until something was posted, and leaves it there.
  void awaitPost() {
    std::unique_lock lock(mutex_);
    posted_.wait(lock, [this] { return !work_.empty(); });
  }

  /// Runs what is there; nothing more may come.
  void runAll() {
    while (!work_.empty()) runNext();
  }

 private:
  std::mutex mutex_;
  std::condition_variable posted_;
  std::deque<std::function<void()>> work_;
};

/// Blocks until `stop` is asked to stop.
inline void waitFor(const std::stop_token& stop) {
  std::mutex mutex;
  std::condition_variable_any never;
  std::unique_lock lock(mutex);
  never.wait(lock, stop, [] { return false; });
}

/// Tells `onUpdate` one update, with every candidate found so far.
inline void tell(const UpdateFunction& onUpdate, ScanProgress progress,
                 std::span<const ScanCandidate> candidates, std::size_t unchanged) {
  const ScanUpdate update{.progress = std::move(progress), .candidateCount = candidates.size()};
  onUpdate({&update, 1}, candidates, unchanged);
}

/// What the services of a test do; they outlive the model.
struct Script {
  using Scan =
      std::function<ScanResult(const UpdateFunction& onUpdate, const std::stop_token& stop)>;

  std::deque<Scan> scans;  ///< one for each scan
  std::vector<std::pair<std::string, ScanMode>> scanned;
  std::function<CleanupResult(const std::vector<ScanCandidate>&, const std::stop_token&)> clean =
      [](const auto& candidates, const auto&) {
        return CleanupResult{candidates, {}};
      };
  int cleanups = 0;
  std::vector<CleanupHistoryEntry> history;
  bool canAppend = true;
};

class ScriptedScanner final : public FileScanning {
 public:
  explicit ScriptedScanner(Script& script) : script_(script) {}

  ScanResult scan(const std::string& root, ScanMode mode, Date, const UpdateFunction& onUpdate,
                  std::stop_token stop) override {
    Script::Scan next;
    {
      const std::lock_guard lock(mutex_);
      script_.scanned.emplace_back(root, mode);
      next = std::move(script_.scans.front());
      script_.scans.pop_front();
    }
    return next(onUpdate, stop);
  }

 private:
  std::mutex mutex_;
  Script& script_;
};

class ScriptedTrash final : public TrashManaging {
 public:
  explicit ScriptedTrash(Script& script) : script_(script) {}

  CleanupResult moveToTrash(const std::vector<ScanCandidate>& candidates, const std::string&,
                            std::stop_token stop) noexcept override {
    ++script_.cleanups;
    return script_.clean(candidates, stop);
  }

 private:
  Script& script_;
};

class ScriptedHistory final : public HistoryStoring {
 public:
  explicit ScriptedHistory(Script& script) : script_(script) {}

  std::vector<CleanupHistoryEntry> load() noexcept override { return script_.history; }

  void append(const CleanupHistoryEntry& entry) override {
    if (!script_.canAppend) throw std::system_error(ENOSPC, std::generic_category());
    script_.history.insert(script_.history.begin(), entry);
  }

 private:
  Script& script_;
};

/// Services that do what the script says.
inline AppModel::Services servicesOf(Script& script) {
  return {.scanner = std::make_unique<ScriptedScanner>(script),
          .trashManager = std::make_unique<ScriptedTrash>(script),
          .historyStore = std::make_unique<ScriptedHistory>(script)};
}

/// Answers with a folder, and writes down what it was asked.
class ScriptedPicker final : public FolderPicking {
 public:
  std::optional<std::string> pickFolder(const FolderRequest& request) override {
    requests.push_back(request);
    return answer;
  }
  std::optional<std::string> desktopDownloads() const override { return downloads; }

  std::optional<std::string> answer;
  std::optional<std::string> downloads;
  std::vector<FolderRequest> requests;
};

/// Writes down what was granted and given back.
class RecordedAccess final : public AccessGranting {
 public:
  bool startAccess(const std::string& folder) override {
    record.push_back("+" + folder);
    return isGranted;
  }
  void stopAccess(const std::string& folder) override { record.push_back("-" + folder); }

  bool isGranted = true;
  std::vector<std::string> record;
};

}  // namespace broomtide::test
