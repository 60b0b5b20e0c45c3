#pragma once

#include <chrono>

#include "core/ServiceInterfaces.h"

namespace broomtide::cli {

/// One line on standard error that tells how far a scan is, redrawn a few times a second. Nothing
/// is written when standard error is not a terminal.
class ProgressLine {
 public:
  ProgressLine();
  ~ProgressLine() { clear(); }

  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  void show(const ScanProgress& progress);
  void clear();

 private:
  const bool isTerminal_;
  bool isShown_ = false;
  std::chrono::steady_clock::time_point nextTime_;
};

}  // namespace broomtide::cli
