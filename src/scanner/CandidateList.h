#pragma once

#include <cstddef>
#include <cstdint>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "core/FileScanning.h"

namespace broomtide {

/// The candidates of a running scan, and the reports that a scan makes of them.
class CandidateList {
 public:
  /// `onUpdate` must outlive the list.
  CandidateList(const UpdateFunction& onUpdate, std::stop_token stop)
      : onUpdate_(onUpdate), stop_(std::move(stop)) {}

  /// The summed size of the candidates, in bytes.
  std::int64_t totalBytes() const { return totalBytes_; }

  /// Reports progress with the candidates found so far and waits until it has been taken. Throws
  /// CancellationError instead once `stop` was asked to stop.
  void report(std::int64_t entries, std::int64_t bytes, const std::string& label);

  void add(ScanCandidate candidate);

  /// Puts the candidates in the order of a result: by safety, then the largest first; equal ones
  /// keep the order in which they were added.
  void sort();

  /// Gives the candidates away.
  std::vector<ScanCandidate> take() { return std::move(candidates_); }

 private:
  const UpdateFunction& onUpdate_;
  const std::stop_token stop_;
  std::vector<ScanCandidate> candidates_;
  std::size_t unchanged_ = 0;  // how many the last report already carried, in the same order
  std::int64_t totalBytes_ = 0;
};

}  // namespace broomtide
