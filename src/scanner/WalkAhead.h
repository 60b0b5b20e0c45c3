#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <thread>

#include "context/ProjectDetector.h"
#include "core/Date.h"
#include "core/Enumerations.h"
#include "platform/FileManager.h"
#include "platform/LinkedStopSource.h"
#include "scanner/BoundedQueue.h"
#include "scanner/MeasurementPool.h"
#include "scanner/WalkBatch.h"

namespace broomtide {

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
