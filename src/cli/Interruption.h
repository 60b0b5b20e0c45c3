#pragma once

#include <atomic>
#include <csignal>
#include <stop_token>
#include <thread>

namespace broomtide::cli {

/// Turns Ctrl-C and a polite request to end (SIGINT, SIGTERM, SIGHUP, SIGQUIT) into a request to
/// stop. A second one ends the program at once. Create one before any other thread is started,
/// because threads inherit which signals are blocked.
class Interruption {
 public:
  Interruption();
  ~Interruption();

  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  std::stop_token token() const { return stopping_.get_token(); }

 private:
  void listen();

  sigset_t signals_{};
  sigset_t signalsBefore_{};
  std::atomic<bool> isEnding_ = false;
  std::stop_source stopping_;
  std::jthread listener_;
};

}  // namespace broomtide::cli
