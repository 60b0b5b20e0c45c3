#include "ui/shell/QtMainThread.h"

#include <QTimer>
#include <atomic>
#include <thread>

#include "ui/TestWindow.h"

namespace broomtide {
namespace {

using testing::ElementsAre;

TEST(QtMainThread, RunsWorkInOrderOnTheMainThread) {
  std::vector<int> order;
  std::vector<std::thread::id> threads;
  ui::QtMainThread main;
  const auto note = [&](int number) {
    order.push_back(number);
    threads.push_back(std::this_thread::get_id());
  };
  main.post([&] {
    note(1);
    main.post([&] { note(4); });
    note(2);
  });
  std::jthread([&] { main.post([&] { note(3); }); }).join();
  EXPECT_THAT(order, ElementsAre());
  test::TestWindow::runUntil([&] { return order.size() == 4; });
  EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(threads, testing::Each(std::this_thread::get_id()));

  main.post([&] { note(5); });  // it was idle in between
  test::TestWindow::runUntil([&] { return order.size() == 5; });
}

TEST(QtMainThread, LetsEventsThroughAFlood) {
  // There is always something more to do until a timer, and an event after it, had their turn.
  std::atomic<bool> isOver = false;
  std::function<void()> more;
  ui::QtMainThread main;
  more = [&] {
    if (!isOver) main.post(more);
  };
  main.post([&] {
    more();
    QTimer::singleShot(0, [&] {
      QMetaObject::invokeMethod(
          &main, [&] { isOver = true; }, Qt::QueuedConnection);
    });
  });
  const std::jthread other([&] {
    while (!isOver) main.post([] {});
  });
  test::TestWindow::runUntil([&] { return isOver.load(); });
  EXPECT_TRUE(isOver);
}

}  // namespace
}  // namespace broomtide
