#include "cli/Interruption.h"

#include <unistd.h>

#include "cli/Failure.h"

namespace broomtide::cli {
namespace {

constexpr int wakeUp = SIGUSR2;  // tells the listener that nobody needs it any more

// Whoever started the program may have asked for a signal to be ignored, as nohup does.
bool isIgnored(int signal) {
  struct sigaction action {};
  return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

Interruption::Interruption() {
  sigemptyset(&signals_);
  sigaddset(&signals_, wakeUp);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    if (!isIgnored(signal)) sigaddset(&signals_, signal);
  }
  ::pthread_sigmask(SIG_BLOCK, &signals_, &signalsBefore_);
  listener_ = std::jthread([this] { listen(); });
}

Interruption::~Interruption() {
  isEnding_ = true;
  ::pthread_kill(listener_.native_handle(), wakeUp);
  listener_.join();
  ::pthread_sigmask(SIG_SETMASK, &signalsBefore_, nullptr);
}

void Interruption::listen() {
  for (;;) {
    int signal = 0;
    if (::sigwait(&signals_, &signal) != 0) continue;
    if (isEnding_) return;
    if (signal == wakeUp) continue;
    const bool isFirst = stopping_.request_stop();
    if (!isFirst) ::_exit(static_cast<int>(ExitStatus::interrupted));
  }
}

}  // namespace broomtide::cli
