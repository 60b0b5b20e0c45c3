#include "cli/ProgressLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "cli/TerminalText.h"
#include "core/ByteCount.h"
#include "core/EscapedText.h"

namespace broomtide::cli {
namespace {

constexpr std::chrono::milliseconds redrawInterval{80};
constexpr std::size_t usualWidth = 80;

std::size_t terminalWidth() {
  winsize size{};
  const bool isKnown = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return isKnown ? size.ws_col : usualWidth;
}

}  // namespace

ProgressLine::ProgressLine() : isTerminal_(takesEscapes(STDERR_FILENO)) {}

void ProgressLine::show(const ScanProgress& progress) {
  if (!isTerminal_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < nextTime_) return;
  nextTime_ = now + redrawInterval;

  const std::string counts = std::to_string(progress.entriesScanned) + " scanned · " +
                             formatByteCount(progress.reclaimableBytes) + " found · ";
  const std::size_t width = terminalWidth() - 1;
  const std::size_t used = displayWidth(counts);
  const std::string path = used < width
                               ? elideMiddle(escaped(progress.currentPath.text()), width - used)
                               : std::string();
  std::fprintf(stderr, "\r\x1b[K%s%s", elideMiddle(counts, width).c_str(), path.c_str());
  std::fflush(stderr);
  isShown_ = true;
}

void ProgressLine::clear() {
  if (!isShown_) return;
  std::fputs("\r\x1b[K", stderr);
  std::fflush(stderr);
  isShown_ = false;
}

}  // namespace broomtide::cli
