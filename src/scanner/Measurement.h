#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "core/Contents.h"
#include "core/Records.h"
#include "platform/FileManager.h"

namespace broomtide {

/// What one folder is and how large, while several threads find it out. Symlinks are not followed
/// and add nothing; hard-linked files count once for each name.
class Measurement {
 public:
  /// The folder itself, before anything in it was read.
  struct Folder {
    bool isOpen = false;        ///< whether its entries can be read; if not, nothing is measured
    std::error_code error;      ///< set when it cannot be examined any more
    FileAttributes attributes;  ///< without an error; no folder's when it is something else by now
  };

  struct Result {
    std::int64_t bytes = 0;    ///< allocated bytes of the regular files
    std::int64_t entries = 0;  ///< everything below the folder, each entry once
    std::vector<ScanIssue> issues;
    Contents contents;  ///< the signs that the policy counts
  };

  /// `policy` says which signs count, and must outlive the measurement.
  explicit Measurement(const ContentsPolicy& policy) : policy_(policy) {}

  /// Called with the bytes and entries counted so far.
  using ProgressFunction = std::function<void(std::int64_t bytes, std::int64_t entries)>;

  /// How many entries lie between two progress calls.
  static constexpr std::int64_t progressInterval = 128;

  /// Waits until the folder has been opened, and returns what was found there. Throws as await()
  /// does.
  Folder awaitFolder(const std::stop_token& stop);

  /// Waits for the end and returns the result. Progress is called on the waiting thread, once for
  /// every full interval of entries that is told of and once at the end, also for what was counted
  /// before the wait began. Throws CancellationError once `stop` is asked to stop, and what made
  /// measuring fail. Issues name what lies below `location`, the folder's absolute path.
  Result await(const std::string& location, const std::stop_token& stop,
               const ProgressFunction& onProgress);

  /// Says that nobody will ask for the result, so that measuring may end early.
  void abandon() { isAbandoned_.store(true, std::memory_order_relaxed); }
  bool isAbandoned() const { return isAbandoned_.load(std::memory_order_relaxed); }

  /// For the threads that measure. A measurement begins with one part under way, which tells of the
  /// folder first, and has ended when every part has.
  void setFolder(const Folder& folder);
  void beginPart();
  void endPart();
  /// Makes the whole measurement fail with the exception, whatever other parts are under way.
  void fail(std::exception_ptr failure);
  /// Whether an interval of entries is told of, which ends with an entry that was just added. Not
  /// with a symlink or an entry that cannot be read.
  enum class IntervalEnd { told, silent };

  /// Adds what was counted: at most one interval of entries at a time.
  void add(std::int64_t bytes, std::int64_t entries, IntervalEnd end);
  const ContentsPolicy& policy() const { return policy_; }
  /// Records a sign, given by its path below the folder.
  void addSign(Sign sign, std::string_view relativePath);
  /// Records a problem with an entry, given by its path below the folder.
  void addIssue(std::string relativePath, std::error_code error);

 private:
  // What had been counted at the end of an interval.
  struct Interval {
    std::int64_t bytes;
    std::int64_t entries;
  };

  struct Problem {
    std::string relativePath;
    std::error_code error;
  };

  template <typename Condition>
  bool waitBriefly(std::unique_lock<std::mutex>& lock, const std::stop_token& stop,
                   Condition condition);
  std::vector<ScanIssue> issuesInOrder(const std::string& location);

  const ContentsPolicy& policy_;
  std::atomic<bool> isAbandoned_ = false;

  std::mutex mutex_;
  std::condition_variable changed_;  // the folder was opened, or the end has come
  std::optional<Folder> folder_;
  int partsUnderWay_ = 1;
  std::exception_ptr failure_;
  std::int64_t bytes_ = 0;
  std::int64_t entries_ = 0;
  std::vector<Interval> intervals_;  // not told of yet
  std::vector<Problem> problems_;
  Contents contents_;
};

}  // namespace broomtide
