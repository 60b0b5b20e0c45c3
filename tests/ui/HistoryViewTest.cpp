#include "ui/Person.h"
#include "ui/controls/RecordList.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using ui::RecordModel;

constexpr Date march = std::chrono::sys_days{2025y / 3 / 1} + 9h + 30min;

class History : public testing::Test {
 protected:
  History() { test::show(test.window()); }

  QWidget& screen() { return test::screen(test.window()); }

  void open() {
    test::click(test::find(screen(), "viewHistory"));
    test.runUntil(Route::history);
  }

  test::TestWindow test;
};

TEST_F(History, SaysThatThereIsNone) {
  open();
  EXPECT_THAT(test::texts(screen()), ElementsAre("Cleanup History", "No cleanup history",
                                                 "Completed cleanups will appear here."));
}

TEST_F(History, ListsCleanupsAsTheyAreStored) {
  test.script.history = {
      {"1", march + 24h, "/home/ada/b", 1, 1'500'000, {}},
      {"2", march, "/home/ada/<i>a\n", 5'000'000'000, 0, {{"f", "x", "left alone"}}},
      {"3", march + 12h, "/", 1234, 2'345'000'000, {}},
  };
  open();
  const QAbstractItemModel& entries = *test::find<QListView>(screen(), "entries").model();
  std::vector<std::vector<QString>> shown;
  for (int row = 0; row < entries.rowCount(); ++row) {
    std::vector<QString>& texts = shown.emplace_back();
    for (const int role : {RecordModel::TitleRole, RecordModel::SubtitleRole,
                           RecordModel::TrailingRole, RecordModel::AmountRole})
      texts.push_back(entries.index(row, 0).data(role).toString());
  }
  EXPECT_THAT(
      shown,
      ElementsAre(ElementsAre("/home/ada/b", "Mar 2, 2025 at 9:30 AM", "1 item(s)", "1.5 MB"),
                  ElementsAre("/home/ada/<i>a\\n", "Mar 1, 2025 at 9:30 AM", "2147483647 item(s)",
                              "Zero KB"),
                  ElementsAre("/", "Mar 1, 2025 at 9:30 PM", "1234 item(s)", "2.35 GB")));
  EXPECT_THAT(test::texts(screen()), ElementsAre("Cleanup History"));
}

TEST_F(History, LeadsBackToWherePeopleCameFrom) {
  open();
  test::press(Qt::Key_Escape);
  EXPECT_EQ(screen().objectName(), "welcome");

  test.scan({{test::selectedItem("a", 7)}, {}, {}});
  test::press(Qt::Key_Return);
  test::press(Qt::Key_Return);
  test.runUntil(Route::summary);
  open();  // shows the cleanup right away
  EXPECT_EQ(test::find<QListView>(screen(), "entries").model()->rowCount(), 1);
  test::click(test::find(screen(), "back"));
  EXPECT_EQ(screen().objectName(), "summary");
}

}  // namespace
}  // namespace broomtide
