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
  confirm({test::selectedItem("a", 1'000'000), test::selectedItem("b", 500'000), left});
  EXPECT_THAT(test::texts(screen()),
              ElementsAre("Move selected items to Trash?", "2 item(s) totaling 1.5 MB",
                          "Items are moved to macOS Trash, not permanently deleted. Broomtide "
                          "will validate every item again before moving it."));
  const auto& note = test::find<QLabel>(screen(), "note");
  EXPECT_GE(note.height(), note.heightForWidth(note.width()));  // none of it is cut off
}

TEST_F(Confirmation, CanBeLeftInEveryWayBeforeAndWhileItemsAreMoved) {
  const auto pressFocused = [this](const char* name) {
    while (!button(name).hasFocus()) test::press(Qt::Key_Tab);
    test::press(Qt::Key_Return);
  };
  const std::vector<std::pair<std::function<void()>, Route>> ways{
      {[] { test::press(Qt::Key_Escape); }, Route::results},
      {[this] { test::click(button("cancel")); }, Route::results},
      {[this] { test::click(button("home")); }, Route::welcome},
      {[&] { pressFocused("cancel"); }, Route::results},
      {[&] { pressFocused("home"); }, Route::welcome},
  };
  for (const bool isMoving : {false, true}) {
    for (const auto& [leave, route] : ways) {
      confirm({test::selectedItem("a", 1)});
      if (isMoving) {
        test::click(button("moveToTrash"));
        hasBegun.acquire();
      }
      leave();
      EXPECT_EQ(test.model().route(), route);
      EXPECT_EQ(test.model().isCleaning(), isMoving);
      if (isMoving) finish();
    }
  }
}

TEST_F(Confirmation, ReturnStartsOneCleanupEvenWhenPeopleComeBack) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    confirm({test::selectedItem("a", 1)});
    test::press(key);
    hasBegun.acquire();
    for (const bool isBack : {false, true}) {
      if (isBack) {
        test::press(Qt::Key_Escape);
        test::press(Qt::Key_Return);
      }
      ASSERT_EQ(screen().objectName(), "confirmation");
      EXPECT_EQ(button("moveToTrash").text(), "Moving…");
      EXPECT_FALSE(button("moveToTrash").isEnabled());
      test::press(key);
      EXPECT_EQ(screen().objectName(), "confirmation");
    }
    finish();
  }
  EXPECT_EQ(test.script.cleanups, 2);
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
