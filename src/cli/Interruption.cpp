#include "cli/Interruption.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <cstdint>

namespace broomtide::cli {
namespace {

// Whoever started the program may have asked for a signal to be ignored, as nohup does.
bool isIgnored(int signal) {
  struct sigaction action {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

Interruption::Interruption() {
  sigemptyset(&signals_);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    if (!isIgnored(signal)) sigaddset(&signals_, signal);
  }
  ::pthread_sigmask(SIG_BLOCK, &signals_, &signalsBefore_);
  arrivals_ = FileDescriptor(::signalfd(-1, &signals_, SFD_CLOEXEC));
  ending_ = FileDescriptor(::eventfd(0, EFD_CLOEXEC));
  listener_ = std::jthread([this] { listen(); });
}

Interruption::~Interruption() {
  const std::uint64_t one = 1;
  static_cast<void>(!::write(ending_.get(), &one, sizeof one));
  listener_.join();
  ::pthread_sigmask(SIG_SETMASK, &signalsBefore_, nullptr);
}

void Interruption::listen() {
  std::array<pollfd, 2> sources{pollfd{arrivals_.get(), POLLIN, 0},
                                pollfd{ending_.get(), POLLIN, 0}};
  for (;;) {
    if (::poll(sources.data(), sources.size(), -1) < 0) continue;
    if (sources[1].revents != 0) return;
    signalfd_siginfo arrival{};
    if (::read(arrivals_.get(), &arrival, sizeof arrival) != sizeof arrival) return;
    if (!stopping_.request_stop()) ::_exit(130);
  }
}

}  // namespace broomtide::cli
