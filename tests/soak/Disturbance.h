#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "soak/Plan.h"
#include "soak/Random.h"

namespace broomtide::soak {

/// Why a cleanup must leave items alone, in the words that people read, by their paths below the
/// scanned folder.
using Refusals = std::map<std::string, std::string_view>;

/// What of these items cannot be moved whatever happens.
Refusals refusalsOf(const Plan& plan, const std::vector<std::string>& selected);

/// Does something to one of the items or to what is around it, such as people and programs do
/// between a scan and a cleanup, and puts what a cleanup must say to it into `refusals`. `aside` is
/// an absolute path outside the scanned folder at which nothing is.
void disturb(const Plan& plan, const std::vector<std::string>& selected, const std::string& aside,
             Random& random, Refusals& refusals);

}  // namespace broomtide::soak
