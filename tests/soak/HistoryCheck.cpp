#include "soak/HistoryCheck.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "core/Utf8.h"
#include "soak/Mismatch.h"

namespace broomtide::soak {
namespace {

constexpr std::size_t longHistory = 50;

// What a file of text can keep of names.
std::vector<CleanupFailure> printable(std::vector<CleanupFailure> failures) {
  for (CleanupFailure& failure : failures) failure.path = utf8::printable(failure.path);
  return failures;
}

}  // namespace

void HistoryCheck::check(const AppModel& model, Date begin) {
  std::vector<CleanupHistoryEntry> found = model.history();
  requireEqual(found.size(), known_.size() + 1, "entries of the history");
  const CleanupHistoryEntry& entry = found.front();
  const CleanupResult& result = model.cleanupResult().value();
  requireEqual(entry.rootPath, utf8::printable(model.rootURL().value()), "folder in the history");
  requireEqual(entry.movedCount, static_cast<std::int64_t>(result.moved.size()), "moved items");
  requireEqual(entry.movedBytes, result.movedBytes(), "bytes in the history");
  require(entry.failures == printable(result.failures), "the history has other failures");
  require(entry.date >= std::chrono::floor<std::chrono::seconds>(begin) &&
              entry.date <= std::chrono::system_clock::now(),
          "the history has " + iso8601(entry.date));
  const bool isSame = std::equal(std::next(found.begin()), found.end(), known_.begin());
  require(isSame, "former entries of the history have changed");
  known_ = std::move(found);
}

void HistoryCheck::startAnewWhenLong() {
  if (known_.size() < longHistory) return;
  std::filesystem::remove_all(folder_);
  known_.clear();
}

}  // namespace broomtide::soak
