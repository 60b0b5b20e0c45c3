#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "context/BuildProof.h"
#include "context/ProjectDetector.h"
#include "platform/FileManager.h"
#include "rules/ScanRule.h"
#include "scanner/Measurement.h"

namespace broomtide {

/// An entry whose name and age a rule accepts, or a folder that is proven to be disposable.
struct WalkMatch {
  const ScanRule* rule = nullptr;
  Surroundings around;        ///< in a project scan
  std::error_code error;      ///< set when a file cannot be examined any more
  FileAttributes attributes;  ///< of a file that can

  std::shared_ptr<Measurement> measurement;  ///< of a folder
  std::unique_ptr<BuildProof> proof;         ///< of what is recognised by what is in it
};

/// One thing that a walk met.
struct WalkStep {
  enum class Kind : std::uint8_t {
    passedOver,   ///< an entry that needs no further look; its path is not kept
    unmatched,    ///< an entry that no rule accepts
    matched,      ///< an entry with a match
    proven,       ///< a match of a folder that was counted before; not an entry
    entryIssue,   ///< an entry with a problem
    folderIssue,  ///< a problem with a folder that was counted before; not an entry
  };

  Kind kind;
  std::string_view folder;             ///< the path below the scanned folder
  std::string_view name;               ///< empty for the folder itself
  const WalkMatch* match = nullptr;    ///< of a matched entry or a proven folder
  const std::string* issue = nullptr;  ///< what the problem is

  /// The path below the scanned folder.
  std::string relativePath() const;
};

/// A part of what a walk met, in its order. A step takes its name and a few bytes: all steps of a
/// project scan are kept until every project is known.
class WalkBatch {
 public:
  /// How large it has become: in records, of which a step takes one or two, and in bytes of text.
  std::size_t recordCount() const { return records_.size(); }
  std::size_t textSize() const { return text_.size(); }

 private:
  friend class WalkWriter;
  friend class WalkReader;

  struct Record {
    bool changesFolder;  // its text is a path to append to what is kept of the folder's
    WalkStep::Kind kind;
    std::uint32_t textLength;
  };

  std::vector<Record> records_;
  std::string text_;                        // of all records, one after the other
  std::vector<std::size_t> keptOfFolders_;  // bytes, one for each record that changes the folder
  std::vector<WalkMatch> matches_;          // one for each matched entry
  std::vector<std::string> issues_;
};

/// Writes the batches of one walk.
class WalkWriter {
 public:
  void addPassedOver();
  void addUnmatched(std::string_view folder, std::string_view name);
  void addMatch(std::string_view folder, std::string_view name, WalkMatch match);
  void addProven(std::string_view folder, WalkMatch match);
  void addEntryIssue(std::string_view folder, std::string_view name, std::string issue);
  void addFolderIssue(std::string_view folder, std::string issue);

  const WalkBatch& batch() const { return batch_; }

  /// Takes what was added since the last call.
  WalkBatch take();

 private:
  void add(WalkStep::Kind kind, std::string_view folder, std::string_view name);

  WalkBatch batch_;
  std::string folder_;  // of the last step that has one
};

/// Reads the batches of one walk, in their order.
class WalkReader {
 public:
  /// Goes on with the next batch.
  void begin(WalkBatch batch);

  /// The next step of the batch, null at its end. Valid until the next call.
  const WalkStep* next();

 private:
  std::string_view nextText(std::size_t length);

  WalkBatch batch_;
  std::size_t nextRecord_ = 0;
  std::size_t nextText_ = 0;
  std::size_t nextFolder_ = 0;
  std::size_t nextMatch_ = 0;
  std::size_t nextIssue_ = 0;
  std::string folder_;
  WalkStep step_{};
};

/// Hands items from one thread to another, in order, and never holds more than a given number.
template <typename Item>
class BoundedQueue {
 public:
  explicit BoundedQueue(std::size_t capacity) : capacity_(capacity) {}

  /// Adds an item; blocks while the queue is full. False, and nothing is added, once `stop` is
  /// asked to stop.
  bool push(Item item, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, stop, [this] { return items_.size() < capacity_; });
    if (stop.stop_requested()) return false;
    items_.push_back(std::move(item));
    changed_.notify_all();
    return true;
  }

  /// Says that nothing more will come; `failure`, when there is one, is thrown by pop() after the
  /// last item.
  void close(std::exception_ptr failure = nullptr) {
    const std::scoped_lock lock(mutex_);
    isClosed_ = true;
    failure_ = std::move(failure);
    changed_.notify_all();
  }

  /// Takes the next item; blocks until there is one. Nothing at the end, and once `stop` is asked
  /// to stop.
  std::optional<Item> pop(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, stop, [this] { return !items_.empty() || isClosed_; });
    if (stop.stop_requested()) return std::nullopt;
    if (items_.empty()) {
      if (failure_) std::rethrow_exception(failure_);
      return std::nullopt;
    }
    Item item = std::move(items_.front());
    items_.pop_front();
    changed_.notify_all();
    return item;
  }

 private:
  const std::size_t capacity_;
  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<Item> items_;
  bool isClosed_ = false;
  std::exception_ptr failure_;
};

}  // namespace broomtide
