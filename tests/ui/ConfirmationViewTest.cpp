#include <QAbstractButton>
#include <semaphore>

#include "ui/Person.h"

namespace broomtide {
namespace {

using testing::ElementsAre;

class Confirmation : public testing::Test {
 protected:
  Confirmation() {
    test::show(test.window());
    test.script.clean = [this](const std::vector<ScanCandidate>& items, const auto&) {
      hasBegun.release();
      mayEnd.acquire();
      return CleanupResult{items, {}};
    };
  }

  ~Confirmation() override { mayEnd.release(); }

  QWidget& screen() { return test::screen(test.window()); }
  QAbstractButton& button(const char* name) { return test::find<QAbstractButton>(screen(), name); }

  // Goes through the results to the confirmation.
  void confirm(std::vector<ScanCandidate> items) {
    test.scan({std::move(items), {}, {}});
    test::press(Qt::Key_Return);
    ASSERT_EQ(screen().objectName(), "confirmation");
  }

  // Lets the cleanup end.
  void finish() {
    mayEnd.release();
    test.runUntil(Route::summary);
  }

  std::counting_semaphore<> hasBegun{0}, mayEnd{0};
  test::TestWindow test;
};

TEST_F(Confirmation, PointsOutNamesThatAreNotWhatTheySeem) {
  ScanCandidate left = test::selectedItem("left\n", 1);
  left.isSelected = false;
  const auto warning = [&] { return screen().findChild<QLabel*>("warning"); };
  confirm({test::selectedItem("photo\u202egpj/build", 1), test::selectedItem("a", 1),
           test::selectedItem("\xff", 1), left});
  EXPECT_TRUE(warning()->isVisible());
  EXPECT_EQ(warning()->text(), "2 of them with unusual characters in the path");
  confirm({test::selectedItem("a", 1), left});
  EXPECT_FALSE(warning()->isVisible());
}

TEST_F(Confirmation, SaysWhatWillHappen) {
  ScanCandidate left = test::selectedItem("left", 1'000'000);
  left.isSelected = false;
  for (const auto& [items, total] : std::vector<std::pair<std::vector<ScanCandidate>, const char*>>{
           {{test::selectedItem("a", 1'499), left}, "1 item(s) totaling 1 KB"},
           {{test::selectedItem("a", 0)}, "1 item(s) totaling Zero KB"},
           {{test::selectedItem("a", 1'000'000), test::selectedItem("b", 500'000), left},
            "2 item(s) totaling 1.5 MB"},
           {std::vector(1234, test::selectedItem("a", 1'000'000'000)),
            "1234 item(s) totaling 1.23 TB"},
       }) {
    confirm(items);
    EXPECT_THAT(test::texts(screen()),
                ElementsAre("Move selected items to Trash?", total,
                            "Items are moved to macOS Trash, not permanently deleted. Broomtide "
                            "will validate every item again before moving it."));
    const auto& note = test::find<QLabel>(screen(), "note");
    EXPECT_GE(note.height(), note.heightForWidth(note.width()));  // none of it is cut off
  }
  EXPECT_EQ(button("cancel").text(), "Cancel");
  EXPECT_EQ(button("home").text(), "Home");
  EXPECT_EQ(button("moveToTrash").text(), "Move to Trash");
}

TEST_F(Confirmation, CanBeLeft) {
  const std::vector<std::pair<std::function<void()>, Route>> ways{
      {[] { test::press(Qt::Key_Escape); }, Route::results},
      {[this] { test::click(button("cancel")); }, Route::results},
      {[this] { test::click(button("home")); }, Route::welcome},
  };
  for (const auto& [leave, route] : ways) {
    ScanCandidate left = test::selectedItem("left", 3);
    left.isSelected = false;
    confirm({test::selectedItem("a", 1), left});
    const std::vector<ScanCandidate> before = test.model().candidates();
    leave();
    EXPECT_EQ(test.model().route(), route);
    if (route == Route::results) {
      EXPECT_EQ(test.model().candidates(), before);
    }
    EXPECT_FALSE(test.model().isCleaning());
  }
}

TEST_F(Confirmation, ReturnStartsOneCleanup) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    confirm({test::selectedItem("a", 1)});
    test::press(key);
    hasBegun.acquire();
    EXPECT_EQ(button("moveToTrash").text(), "Moving…");
    EXPECT_FALSE(button("moveToTrash").isEnabled());
    test::press(key);
    EXPECT_EQ(screen().objectName(), "confirmation");
    EXPECT_FALSE(hasBegun.try_acquire());
    EXPECT_TRUE(button("cancel").isEnabled());
    EXPECT_TRUE(button("home").isEnabled());
    finish();
  }
  EXPECT_EQ(test.script.cleanups, 2);
}

TEST_F(Confirmation, CanBeLeftWhileItemsAreMoved) {
  for (const auto& [name, route] : std::vector<std::pair<const char*, Route>>{
           {"cancel", Route::results},
           {"home", Route::welcome},
       }) {
    confirm({test::selectedItem("a", 1)});
    test::click(button("moveToTrash"));
    hasBegun.acquire();
    test::click(button(name));
    EXPECT_EQ(test.model().route(), route);
    EXPECT_TRUE(test.model().isCleaning());
    finish();
  }
}

TEST_F(Confirmation, ComingBackWhileItemsAreMovedStartsNothing) {
  confirm({test::selectedItem("a", 1)});
  test::press(Qt::Key_Return);
  hasBegun.acquire();
  test::press(Qt::Key_Escape);
  test::press(Qt::Key_Return);
  ASSERT_EQ(screen().objectName(), "confirmation");
  EXPECT_EQ(button("moveToTrash").text(), "Moving…");
  test::press(Qt::Key_Return);
  EXPECT_EQ(screen().objectName(), "confirmation");
  finish();
  EXPECT_EQ(test.script.cleanups, 1);
}

TEST_F(Confirmation, ReturnPressesTheButtonInFocus) {
  for (const auto& [name, route] : std::vector<std::pair<const char*, Route>>{
           {"cancel", Route::results},
           {"home", Route::welcome},
       }) {
    confirm({test::selectedItem("a", 1)});
    while (!button(name).hasFocus()) test::press(Qt::Key_Tab);
    test::press(Qt::Key_Return);
    EXPECT_EQ(test.model().route(), route);
    EXPECT_FALSE(test.model().isCleaning());
  }
}

TEST_F(Confirmation, AKeyThatIsHeldDownConfirmsNothing) {
  test.scan({{test::selectedItem("a", 1)}, {}, {}});
  for (const auto& [held, shown] : std::vector<std::pair<bool, Route>>{
           {true, Route::results},
           {false, Route::confirmation},
           {true, Route::confirmation},
       }) {
    if (held) {
      for (int times = 0; times < 5; ++times) test::repeat(Qt::Key_Return);
    } else {
      QTest::keyPress(test.window().windowHandle(), Qt::Key_Return);
    }
    EXPECT_EQ(test.model().route(), shown);
  }
  EXPECT_FALSE(test.model().isCleaning());
}

}  // namespace
}  // namespace broomtide
