#include "scanner/ScanReports.h"

#include <latch>
#include <thread>

#include "core/ServiceInterfaces.h"

namespace broomtide {
namespace {

constexpr int manyReports = 20'000;  // more than may wait

// Reports numbers, with a candidate before every tenth, until it is stopped.
void reportMany(ScanReports& reports) {
  try {
    for (int number = 0; number < manyReports; ++number) {
      if (number % 10 == 0) {
        ScanCandidate candidate;
        candidate.size = number;
        reports.add(std::move(candidate));
      }
      reports.report(number, reports.totalBytes(), bareName(std::to_string(number)));
    }
    reports.add({});  // no report tells of it
    throw std::out_of_range("the end");
  } catch (...) {
    reports.close(std::current_exception());
  }
}

TEST(ScanReports, ArriveWholeInOrderAndEndWithTheFailure) {
  ScanReports reports{std::stop_token()};
  std::jthread scanning([&] { reportMany(reports); });
  std::int64_t next = 0;
  std::int64_t bytes = 0;
  std::size_t found = 0;
  const auto takeAll = [&] {
    while (const auto batch = reports.next()) {
      EXPECT_FALSE(batch->updates.empty());
      for (const ScanUpdate& update : batch->updates) {
        if (next % 10 == 0) bytes += next;
        EXPECT_EQ(update.progress.entriesScanned, next);
        EXPECT_EQ(update.progress.reclaimableBytes, bytes);
        EXPECT_EQ(update.progress.currentPath.text(), std::to_string(next));
        EXPECT_EQ(update.candidateCount, static_cast<std::size_t>(next / 10 + 1));
        ++next;
      }
      for (const ScanCandidate& candidate : batch->candidates) {
        EXPECT_EQ(candidate.size, static_cast<std::int64_t>(10 * found++));
      }
      // Nothing is handed out before a report tells of it.
      EXPECT_EQ(found, batch->updates.back().candidateCount);
    }
  };
  EXPECT_THROW(takeAll(), std::out_of_range);
  EXPECT_EQ(next, manyReports);
}

TEST(ScanReports, StopBothSidesHoweverMuchWaits) {
  std::stop_source stopping;
  ScanReports reports(stopping.get_token());
  bool isCancelled = false;
  std::latch isFull(1);
  std::jthread scanning([&] {
    try {
      for (std::size_t number = 0;; ++number) {
        if (number == ScanReports::maxWaiting)
          isFull.count_down();  // the next report waits until one was taken
        reports.report(0, 0, {});
      }
    } catch (const CancellationError&) {
      isCancelled = true;
    }
  });
  isFull.wait();
  stopping.request_stop();
  scanning.join();
  EXPECT_TRUE(isCancelled);
  EXPECT_THROW(reports.next(), CancellationError);
}

}  // namespace
}  // namespace broomtide
