#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "app/AppModel.h"
#include "soak/Measured.h"
#include "soak/Plan.h"

namespace broomtide::soak {

/// What a scan must find, from the plan and from the soak's own walk over the folder.
struct Expectation {
  std::map<std::string, Measured> offers;  ///< by path below the scanned folder
  std::set<std::string> troubles;          ///< what issues must tell of, the same
  std::int64_t entries = 0;                ///< that a scan counts, except one of caches

  bool operator==(const Expectation&) const = default;
};
Expectation expectationOf(const Plan& plan);

/// Compares every candidate and all totals of a finished scan, and throws a Mismatch about the
/// first that is not as expected.
void checkScan(const AppModel& model, const Plan& plan, const Expectation& expected);

}  // namespace broomtide::soak
