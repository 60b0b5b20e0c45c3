#pragma once

#include <chrono>
#include <ctime>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/CleanupResult.h"
#include "core/Date.h"
#include "soak/Disturbance.h"
#include "soak/Figures.h"
#include "soak/Plan.h"
#include "soak/ScanCheck.h"
#include "soak/TreeState.h"
#include "support/TrashReader.h"

namespace broomtide::soak {

/// Looks at one cleanup before and after it, and undoes it as a file manager would. Every operation
/// throws a Mismatch about the first thing that is not as it should be.
class CleanupCheck {
 public:
  /// Just before the cleanup. `selected` are the items it gets, in their order, and `trash` is the
  /// Trash folder. Everything must outlive the check.
  CleanupCheck(const Plan& plan, const Expectation& expected, std::vector<std::string> selected,
               Refusals refusals, std::string trash, Figures& figures);

  /// What the cleanup said of each item.
  void checkResult(const CleanupResult& result) const;

  /// What is in the Trash: what was moved, with the contents, permissions and dates that it had,
  /// and with where it was, when it came and how large it is.
  void checkTrash() const;

  /// Moves everything back and gives the folders that held it the dates that they had.
  void restore() const;

 private:
  struct Before {
    TreeState state;
    timespec folderDate;  // of the folder that holds the item
  };

  std::string checkItem(const test::TrashedItem& trashed) const;
  std::map<std::string, std::int64_t> recordedSizes() const;

  const Plan& plan_;
  const Expectation& expected_;
  const std::vector<std::string> selected_;
  const Refusals refusals_;
  const std::string trash_;
  const Date begin_ = std::chrono::system_clock::now();
  Figures& figures_;
  std::map<std::string, Before> moved_;  // what is to be moved
};

}  // namespace broomtide::soak
