#pragma once

#include <sys/types.h>

#include <cstddef>
#include <string>

#include "platform/ChildProcess.h"
#include "platform/FileDescriptor.h"

/// What `ChildProcess::run` is made of: a child and the pipes it writes to. Each object is for one
/// thread.
namespace broomtide::ChildProcess {

/// A pipe that a child writes to, and what came out of it.
class Stream {
 public:
  /// Takes how many bytes may come. The stream is not open when there are no descriptors left.
  explicit Stream(std::size_t most);

  /// True until the end of what is written was read.
  bool isOpen() const { return readEnd_.isOpen(); }

  /// The descriptors of both ends, -1 for one that is closed.
  int readEnd() const { return readEnd_.get(); }
  int writeEnd() const { return writeEnd_.get(); }

  /// To be called once the child has its own, so that the stream ends with the child.
  void closeWriteEnd() { writeEnd_.reset(); }

  /// Reads what is there; the stream is closed at its end. False when that fails or it is too much.
  bool read();

  /// Gives away all that was read.
  std::string take();

 private:
  const std::size_t most_;
  FileDescriptor readEnd_;
  FileDescriptor writeEnd_;
  std::string text_;
  std::size_t length_ = 0;
};

/// A child in a process group of its own. Kills the group and waits for the child when it was not
/// yet waited for on destruction.
class SpawnedChild {
 public:
  /// Starts a command without input, which writes to the descriptors `output` and `errors`. When
  /// that fails, the child is not running.
  SpawnedChild(const Command& command, int output, int errors);
  ~SpawnedChild();

  SpawnedChild(const SpawnedChild&) = delete;
  SpawnedChild& operator=(const SpawnedChild&) = delete;

  /// True from the start until the child was waited for.
  bool isRunning() const { return process_ > 0 && ended_.isOpen(); }

  /// A descriptor that can be read once the child has ended.
  int ended() const { return ended_.get(); }

  /// The nanoseconds that the child has spent on a processor, which change as long as it does
  /// anything. Empty where the system does not tell.
  std::string processorTime() const;

  /// Waits for the child and returns its wait status.
  int reap();

 private:
  pid_t process_ = -1;
  FileDescriptor ended_;
};

}  // namespace broomtide::ChildProcess
