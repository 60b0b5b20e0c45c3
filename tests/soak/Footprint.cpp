#include "soak/Footprint.h"

#include <malloc.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include "soak/Mismatch.h"
#include "support/Leaks.h"

namespace broomtide::soak {
namespace {

std::size_t runningThreads() {
  const auto count = std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
  return static_cast<std::size_t>(count);
}

// A thread has something to do yet after its last message.
void awaitThreads(std::size_t most) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (runningThreads() > most && std::chrono::steady_clock::now() < end) {
    std::this_thread::yield();
  }
}

void requireNotMore(const Footprint::Count& count, const std::string& what) {
  require(count.last <= count.first, what + " have risen from " + std::to_string(count.first) +
                                         " before the first round to " +
                                         std::to_string(count.last));
}

}  // namespace

Footprint::Footprint()
    : descriptors_{.first = test::openDescriptors()}, threads_{.first = runningThreads()} {}

bool Footprint::judgesMemory() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return false;
#else
  return true;
#endif
}

void Footprint::afterRound() {
  awaitThreads(threads_.first);
  descriptors_.last = test::openDescriptors();
  threads_.last = runningThreads();
  requireNotMore(descriptors_, "open descriptors");
  requireNotMore(threads_, "threads");
  require(!test::hasChildren(), "a child process was left behind");
  if (judgesMemory()) readMemory();
}

void Footprint::readMemory() {
  ::malloc_trim(0);  // what could be given back is no growth
  std::size_t pages = 0, residentPages = 0;
  std::ifstream("/proc/self/statm") >> pages >> residentPages;
  resident_.add(residentPages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)));
  const struct mallinfo2 heap = ::mallinfo2();
  heap_.add(heap.uordblks + heap.hblkhd);
}

}  // namespace broomtide::soak
