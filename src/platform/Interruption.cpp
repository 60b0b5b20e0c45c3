#include "platform/Interruption.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <system_error>

namespace broomtide {
namespace {

std::atomic<int> handlerWriter = -1;

// All that a handler may do is to write, and to leave errno as it was.
void onSignal(int signal) {
  const int error = errno;
  const char isOfKey = signal == SIGINT || signal == SIGQUIT ? 1 : 0;
  [[maybe_unused]] const ssize_t written = ::write(handlerWriter, &isOfKey, 1);
  errno = error;
}

}  // namespace

Interruption::Interruption() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category());
  writer_ = FileDescriptor(ends[1]);
  listener_ = std::jthread([this, reader = FileDescriptor(ends[0])] { listen(reader); });
  handlerWriter = writer_.get();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    struct sigaction before {};
    ::sigaction(signal, nullptr, &before);
    // Whoever started the program may have asked for a signal to be ignored, as nohup does.
    if (before.sa_handler == SIG_IGN) continue;
    struct sigaction action {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
    actionsBefore_.emplace_back(signal, before);
  }
}

Interruption::~Interruption() {
  for (const auto& [signal, action] : actionsBefore_) ::sigaction(signal, &action, nullptr);
  handlerWriter = -1;
  writer_.reset();  // which ends the listener
}

void Interruption::listen(const FileDescriptor& reader) {
  for (;;) {
    char isOfKey = 0;
    const ssize_t count = ::read(reader.get(), &isOfKey, 1);
    if (count == 0) return;
    if (count < 0) continue;
    const bool isFirst = stopping_.request_stop();
    // A terminal that is closed, or a session that ends, asks several times by itself.
    if (!isFirst && isOfKey != 0) ::_exit(endedAtOnce);
  }
}

}  // namespace broomtide
