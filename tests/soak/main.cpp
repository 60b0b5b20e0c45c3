// Does over and over, in one process and with one session, what it is told on standard input:
// fields that end with a zero byte. Each answer is a JSON document and a zero byte.
//
//   scan MODE FOLDER      the report of the scan
//   clean COUNT ITEM...   the report of a cleanup of these items of the last scan
//   history               all cleanups, newest first
//   footprint             what this process holds of the system

#include <malloc.h>
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "cli/CleanReport.h"
#include "cli/JsonText.h"
#include "cli/ScanReport.h"
#include "cli/Session.h"
#include "support/Leaks.h"

namespace broomtide::soak {
namespace {

std::string nextField() {
  std::string field;
  if (!std::getline(std::cin, field, '\0')) throw std::runtime_error("a field is missing");
  return field;
}

void require(bool isDone, const std::string& what) {
  if (!isDone) throw std::runtime_error(what);
}

void scan(cli::Session& session) {
  const ScanMode mode = fromRawValue<ScanMode>(nextField()).value();
  const std::string folder = nextField();
  require(session.scan(folder, mode) == cli::ExitStatus::done, "the scan failed");
  const AppModel& model = session.model();
  writeJson(std::cout, cli::ScanReport{.mode = mode,
                                       .root = folder,
                                       .entriesScanned = model.progress().entriesScanned,
                                       .candidates = rowsOf(model.candidates()),
                                       .issues = model.scanIssues(),
                                       .projects = model.projectContexts()});
}

void clean(cli::Session& session) {
  std::vector<std::string> items(std::stoul(nextField()));
  for (std::string& item : items) item = nextField();
  require(!session.select(items), "an item is not there");
  session.clean({});
  const CleanupResult& result = session.model().cleanupResult().value();
  writeJson(std::cout, cli::CleanReport{.root = session.model().rootURL().value(),
                                        .isDryRun = false,
                                        .moved = rowsOf(result.moved),
                                        .failures = result.failures,
                                        .isRecorded = session.isRecorded()});
}

void tellHistory(cli::Session& session) {
  session.loadHistory();
  cli::writeArray(std::cout, session.model().history(), "");
}

// Sanitizers keep what was freed, so that memory says nothing there; they find leaks themselves.
constexpr bool isMemoryTold() {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  return false;
#else
  return true;
#endif
}

std::size_t residentBytes() {
  std::size_t pages = 0, residentPages = 0;
  std::ifstream("/proc/self/statm") >> pages >> residentPages;
  return residentPages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

void tellFootprint() {
  ::malloc_trim(0);  // what could be given back is no growth
  const struct mallinfo2 heap = ::mallinfo2();
  const auto threads = std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
  std::cout << "{\"descriptors\": " << test::openDescriptors() << ", \"threads\": " << threads
            << ", \"children\": " << (test::hasChildren() ? 1 : 0);
  if (isMemoryTold()) {
    std::cout << ", \"heap\": " << heap.uordblks + heap.hblkhd
              << ", \"resident\": " << residentBytes();
  }
  std::cout << '}';
}

void obey() {
  cli::Session session;
  for (std::string order; std::getline(std::cin, order, '\0');) {
    if (order == "scan") {
      scan(session);
    } else if (order == "clean") {
      clean(session);
    } else if (order == "history") {
      tellHistory(session);
    } else {
      require(order == "footprint", "nobody knows how to " + order);
      tellFootprint();
    }
    std::cout << '\0' << std::flush;
  }
}

}  // namespace
}  // namespace broomtide::soak

int main() {
  try {
    broomtide::soak::obey();
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << "broomtide-soak: " << failure.what() << '\n';
    return 1;
  }
}
