#include "platform/FileSizeLimit.h"

#include <csignal>

namespace broomtide::FileSizeLimit {

void meetAsError() { std::signal(SIGXFSZ, SIG_IGN); }

}  // namespace broomtide::FileSizeLimit
