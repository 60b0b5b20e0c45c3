#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <vector>

#include "context/ProjectDetector.h"
#include "core/Date.h"
#include "core/Enumerations.h"
#include "platform/FileManager.h"
#include "platform/LinkedStopSource.h"
#include "rules/ScanRule.h"
#include "scanner/BoundedQueue.h"
#include "scanner/Measurement.h"
#include "scanner/MeasurementPool.h"
#include "scanner/SmallFolder.h"

namespace broomtide {

/// An entry whose name and age a rule accepts and whose surroundings the rule allows.
struct WalkMatch {
  const ScanRule* rule = nullptr;
  const ProjectContext* project = nullptr;  ///< the nearest enclosing one, or null
  std::error_code error;                    ///< set when the entry cannot be examined any more
  FileAttributes attributes;

  /// The size of a folder: measured already, or being measured, or neither when the folder cannot
  /// be opened.
  std::optional<Measurement::Result> measured;
  std::shared_ptr<Measurement> measurement;
};

/// What the walk met, in its order. A few hundred steps share one block of text.
class WalkBatch {
 public:
  enum class Kind : std::uint8_t {
    passedOver,   ///< an entry that needs no further look
    unmatched,    ///< an entry that no rule accepts
    matched,      ///< an entry with a match
    entryIssue,   ///< an entry with a problem
    folderIssue,  ///< a problem with a folder that was counted before; not an entry
  };

  struct Step {
    Kind kind;
    std::uint32_t folderStart;
    std::uint32_t nameStart;
    std::uint32_t detail;  ///< which match or message belongs to it
    std::uint16_t nameLength;
    std::uint32_t folderLength;
  };

  const std::vector<Step>& steps() const { return steps_; }
  std::size_t textSize() const { return text_.size(); }

  /// The path of a step's entry, relative to the scanned folder.
  std::string relativePath(const Step& step) const;
  WalkMatch& match(const Step& step) { return matches_[step.detail]; }
  const std::string& message(const Step& step) const { return messages_[step.detail]; }

  void addPassedOver();
  void addUnmatched(std::string_view folder, std::string_view name);
  void addMatch(std::string_view folder, std::string_view name, WalkMatch match);
  void addIssue(Kind kind, std::string_view folder, std::string_view name, std::string message);

 private:
  Step& addStep(Kind kind, std::string_view folder, std::string_view name);

  std::string text_;
  std::vector<Step> steps_;
  std::vector<WalkMatch> matches_;
  std::vector<std::string> messages_;
};

/// Walks a tree on a thread of its own, a bounded distance ahead of its reader, and has every
/// matched folder measured as soon as it is met.
class WalkAhead {
 public:
  struct Setup {
    std::string root;  ///< the scanned folder, a standardised absolute path
    ScanMode mode;     ///< project or downloads
    Date now;          ///< the reference time of rules about age
    FileManager& fileManager;
    const ProjectLookup& projects;
    MeasurementPool& measurements;
  };

  /// Starts to walk the open folder `top`. What the setup refers to must outlive the walk.
  WalkAhead(FileDescriptor top, Setup setup, std::stop_token stop);

  /// Ends the walk and waits for its thread.
  ~WalkAhead();

  WalkAhead(const WalkAhead&) = delete;
  WalkAhead& operator=(const WalkAhead&) = delete;

  /// The next steps; nothing at the end, and once `stop` is asked to stop. Throws what the walk
  /// threw.
  std::optional<WalkBatch> next() { return batches_.pop(stopping_.token()); }

 private:
  class Walker;

  LinkedStopSource stopping_;
  BoundedQueue<WalkBatch> batches_;
  std::jthread thread_;
};

}  // namespace broomtide
