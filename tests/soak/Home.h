#pragma once

#include <memory>
#include <string>

#include "soak/Desk.h"
#include "soak/Figures.h"
#include "soak/HistoryCheck.h"
#include "soak/TreeState.h"
#include "support/TemporaryTree.h"

namespace broomtide::soak {

/// A home folder that is nobody's, with the Trash and the history of all rounds, and a desk that
/// works with them. Only one at a time.
class Home {
 public:
  /// Points the environment of the process to the home folder, so that there must be no other
  /// thread that reads it.
  Home();

  Desk& desk() { return *desk_; }
  HistoryCheck& history() { return history_; }
  std::string trash() const { return tree_.path("data/Trash"); }
  const std::string& folder() const { return tree_.root(); }

  /// Leaves everything where it is, for people to look at.
  void keep() { tree_.keep(); }

  /// As if the program were closed and started again.
  void renewDesk() { desk_ = std::make_unique<Desk>(); }

  /// Throws a Mismatch unless everything but the Trash and the history is as it was.
  void checkRest(Figures& figures) const;

 private:
  test::TemporaryTree tree_;
  TreeState rest_;
  HistoryCheck history_;
  std::unique_ptr<Desk> desk_;
};

}  // namespace broomtide::soak
