#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <system_error>

#include "support/FaultyFileManager.h"
#include "support/TemporaryTree.h"

namespace broomtide::test {

/// Makes each call that an operation makes of the file system fail with each of a few errors,
/// whether or not that call could: once alone, and once together with every call after it.
class EveryFault : public testing::Test {
 protected:
  enum class Extent { oneCall, allFromThere };

  EveryFault();
  ~EveryFault() override;

  /// Runs an attempt without a fault, and then for each fault until one comes that it does not
  /// reach. Nothing may be left open by it. What the attempt does between arm() and disarm() is
  /// what fails.
  void forEachFault(const std::function<void()>& attempt);

  void arm() { calls_ = 0; }
  void disarm();

  /// Whether the fault of this attempt was reached.
  bool hasFailed() const { return failingCall_ > 0 && calls() >= failingCall_; }
  Extent extent() const { return extent_; }

  TemporaryTree tree;
  FaultyFileManager files;

 private:
  static constexpr int unarmed = -1'000'000'000;

  void forEachCall(const std::function<void()>& attempt);
  int calls() const { return calls_ < 0 ? lastCalls_ : calls_.load(); }
  std::error_code nextCall();

  std::atomic<int> calls_ = unarmed;
  int lastCalls_ = 0;
  int failingCall_ = 0;
  Extent extent_ = Extent::oneCall;
  std::error_code error_;
  int injected_ = 0;
};

}  // namespace broomtide::test
