#pragma once

#include <string>
#include <vector>

#include "app/AppModel.h"
#include "soak/Figures.h"

namespace broomtide::soak {

/// Follows the history through the cleanups of all rounds.
class HistoryCheck {
 public:
  /// `folder` holds the history, an absolute path.
  explicit HistoryCheck(std::string folder) : folder_(std::move(folder)) {}

  /// After a cleanup that began at `begin` and its history was read back: it has one more entry,
  /// with what was moved and what was not, and the others as they were. Throws a Mismatch.
  void check(const AppModel& model, Date begin);

  /// Gives up a long history, as what is remembered must not grow for ever.
  void startAnewWhenLong();

 private:
  const std::string folder_;
  std::vector<CleanupHistoryEntry> known_;
};

}  // namespace broomtide::soak
