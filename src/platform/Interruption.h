#pragma once

#include <csignal>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

#include "platform/FileManager.h"

namespace broomtide {

/// Turns Ctrl-C and a polite request to end (SIGINT, SIGTERM, SIGHUP, SIGQUIT) into a request to
/// stop, which is made on a thread of its own. A key (SIGINT, SIGQUIT) after that ends the program
/// at once, with the status `endedAtOnce`. There can be one at a time. Children are not affected.
class Interruption {
 public:
  static constexpr int endedAtOnce = 130;

  /// Throws std::system_error when there are no descriptors or threads left.
  Interruption();

  /// The signals mean what they meant before.
  ~Interruption();

  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  std::stop_token token() const { return stopping_.get_token(); }

 private:
  void listen(const FileDescriptor& reader);

  std::vector<std::pair<int, struct sigaction>> actionsBefore_;
  FileDescriptor writer_;  // of a pipe, to which the handler writes
  std::stop_source stopping_;
  std::jthread listener_;
};

}  // namespace broomtide
