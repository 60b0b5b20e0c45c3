#pragma once

#include <cstddef>

#include "soak/Growth.h"

namespace broomtide::soak {

/// Sees to it that this process, which does the same again and again, does not hold more and more
/// of the system. After a round there must be no more descriptors and threads than before the first
/// one, and no child. Memory may vary a little.
class Footprint {
 public:
  /// What a process has of something, before the first round and after the last.
  struct Count {
    std::size_t first;
    std::size_t last = first;
  };

  Footprint();

  /// Takes readings after a round, and throws a Mismatch when something has risen. Threads that are
  /// about to end are waited for.
  void afterRound();

  const Count& descriptors() const { return descriptors_; }
  const Count& threads() const { return threads_; }
  const Growth& resident() const { return resident_; }
  const Growth& heap() const { return heap_; }

  /// Sanitizers keep what was freed, so that memory says nothing there; they find leaks themselves.
  static bool judgesMemory();

 private:
  void readMemory();

  Count descriptors_;
  Count threads_;
  Growth resident_{"resident memory", std::size_t{4} << 20U};
  // What is not freed, which tells more than pages, but only of what was allocated in the usual
  // way.
  Growth heap_{"the heap", std::size_t{256} << 10U};
};

}  // namespace broomtide::soak
