#include "reliability/EveryFault.h"

#include <array>
#include <iostream>
#include <string>

#include "support/Leaks.h"

namespace broomtide::test {

EveryFault::EveryFault() {
  files.onOpen = files.onAttributes = files.onChange =
      files.onCheck = [this](const std::string&) { return nextCall(); };
  files.onRead = [this] { return nextCall(); };
}

EveryFault::~EveryFault() {
  std::cout << "[   FAULTS ] " << injected_ << '\n';
  EXPECT_GT(injected_, 0);
}

void EveryFault::forEachFault(const std::function<void()>& attempt) {
  constexpr std::array errors{
      std::errc::permission_denied,  std::errc::io_error,
      std::errc::no_space_on_device, std::errc::too_many_files_open,
      std::errc::filename_too_long,  std::errc::no_such_file_or_directory,
      std::errc::cross_device_link,  std::errc::read_only_file_system,
      std::errc::interrupted,
  };
  attempt();
  for (const Extent extent : {Extent::oneCall, Extent::allFromThere}) {
    for (const std::errc error : errors) {
      extent_ = extent;
      error_ = std::make_error_code(error);
      forEachCall(attempt);
      if (HasFailure()) return;
    }
  }
}

void EveryFault::forEachCall(const std::function<void()>& attempt) {
  failingCall_ = 0;
  do {
    ++failingCall_;
    SCOPED_TRACE(error_.message() + " at call " + std::to_string(failingCall_) +
                 (extent_ == Extent::oneCall ? "" : " and all after it"));
    const std::size_t descriptors = openDescriptors();
    attempt();
    EXPECT_EQ(openDescriptors(), descriptors);
    EXPECT_FALSE(hasChildren());
  } while (hasFailed() && !HasFailure());
  failingCall_ = 0;
}

void EveryFault::disarm() {
  if (hasFailed()) ++injected_;
  lastCalls_ = calls_.exchange(unarmed);
}

std::error_code EveryFault::nextCall() {
  const int call = ++calls_;
  const bool isReached = extent_ == Extent::oneCall ? call == failingCall_ : call >= failingCall_;
  return failingCall_ > 0 && isReached ? error_ : std::error_code();
}

}  // namespace broomtide::test
