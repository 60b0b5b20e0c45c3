#pragma once

#include <future>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

#include "context/ProjectDetector.h"
#include "core/Date.h"
#include "core/Enumerations.h"
#include "platform/FileManager.h"
#include "platform/LinkedStopSource.h"
#include "scanner/MeasurementPool.h"
#include "scanner/WalkSteps.h"
#include "trash/TrashPlaces.h"

namespace broomtide {

/// Walks a tree on a thread of its own, ahead of its reader, and while it goes on has every matched
/// folder measured that the rules may accept where it lies. In a project scan the same walk finds
/// the projects and repositories, which the reader waits for before it looks at any step.
class TreeWalk {
 public:
  struct Setup {
    std::string root;  ///< the scanned folder, a standardised absolute path
    ScanMode mode;     ///< project or downloads
    Date now;          ///< the reference time of rules about age
    FileManager& fileManager;
    MeasurementPool& measurements;
    TrashPlaces trashes;                               ///< what the walk does not enter
    const std::vector<std::string>& homes;             ///< of users, absolute paths
    ProjectDetector::RepositoryFunction onRepository;  ///< called on the thread of the walk
  };

  /// Starts to walk the open folder `top`. What the setup refers to must outlive the walk.
  TreeWalk(FileDescriptor top, Setup setup, std::stop_token stop);

  /// Ends the walk and waits for its thread.
  ~TreeWalk();

  TreeWalk(const TreeWalk&) = delete;
  TreeWalk& operator=(const TreeWalk&) = delete;

  /// Waits for the end of the walk and returns the projects that it found: to be called once, in
  /// project mode, before next(). Throws what the walk threw, and CancellationError when `stop` was
  /// asked to stop before the end.
  ProjectDiscovery awaitDiscovery();

  /// The next step, valid until the next call; null at the end, and once `stop` is asked to stop.
  /// Throws what the walk threw.
  const WalkStep* next();

 private:
  class Walker;

  LinkedStopSource stopping_;
  ProjectDetector projects_;  // what the steps refer to
  BoundedQueue<WalkBatch> batches_;
  std::promise<ProjectDiscovery> discovery_;
  WalkReader reader_;
  std::jthread thread_;
};

}  // namespace broomtide
