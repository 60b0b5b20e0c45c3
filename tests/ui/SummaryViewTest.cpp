#include <QAbstractButton>
#include <QPushButton>

#include "ui/Person.h"
#include "ui/controls/RecordList.h"
#include "ui/controls/SymbolView.h"

namespace broomtide {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::Le;
using ui::RecordList;
using ui::RecordModel;

class Summary : public testing::Test {
 protected:
  Summary() { test::show(test.window()); }

  QWidget& screen() { return test::screen(test.window()); }
  const ui::SymbolView& outcome() { return test::find<ui::SymbolView>(screen(), "outcome"); }

  // Goes all the way to the summary of a cleanup with this result.
  void clean(CleanupResult result) {
    test.script.clean = [result = std::move(result)](const auto&, const auto&) { return result; };
    test.scan({{test::selectedItem("a", 1)}, {}, {}});
    test::press(Qt::Key_Return);
    test::press(Qt::Key_Return);
    test.runUntil(Route::summary);
  }

  test::TestWindow test;
};

TEST_F(Summary, TellsThatAllWentWell) {
  clean({{test::selectedItem("a", 1'000'000), test::selectedItem("b", 500'000)}, {}});
  EXPECT_THAT(test::texts(screen()), ElementsAre("Cleanup complete", "1.5 MB", "2", "0",
                                                 "Moved to Trash", "Items moved", "Failed"));
  EXPECT_EQ(outcome().name(), "checkmark.circle.fill");
  EXPECT_EQ(outcome().tone(), ui::Tone::safe);
  EXPECT_THAT(screen().findChildren<RecordList*>(), ElementsAre());
}

TEST_F(Summary, ListsWhatWasLeftAlone) {
  const std::vector<std::pair<const char*, const char*>> failures{
      {"z", "The item changed after the scan."},
      {"a/<b>",
       "Broomtide could not move this item to Trash. It may be locked, in use, or require "
       "additional permission."},
      {"m", "The item changed after the scan."},
  };
  CleanupResult result{{test::selectedItem("a", 1)}, {}};
  for (const auto& [path, message] : failures) result.failures.push_back({path, path, message});
  clean(result);
  EXPECT_EQ(outcome().name(), "exclamationmark.circle.fill");
  EXPECT_EQ(outcome().tone(), ui::Tone::usuallySafe);
  EXPECT_THAT(test::texts(screen()), ElementsAre("Cleanup complete", "1 byte", "1", "3",
                                                 "Moved to Trash", "Items moved", "Failed"));
  const auto& list = test::find<RecordList>(screen(), "failures");
  ASSERT_EQ(list.model()->rowCount(), 3);
  for (int row = 0; row < 3; ++row) {
    const QModelIndex index = list.model()->index(row, 0);
    const auto& [path, message] = failures.at(static_cast<std::size_t>(row));
    EXPECT_EQ(index.data(RecordModel::TitleRole), path);
    EXPECT_EQ(index.data(RecordModel::SubtitleRole), message);
  }
  for (const int width : {820, 2560}) {
    test.window().resize(width, 800);
    test::TestWindow::runUntil([&] { return test.window().width() == width; });
    QCoreApplication::processEvents();
    EXPECT_EQ(list.height(), 220);
    EXPECT_THAT(list.width(), AllOf(Ge(500), Le(620)));
  }
}

TEST_F(Summary, PointsOutNamesThatAreNotWhatTheySeem) {
  CleanupResult result{{test::selectedItem("a", 1)}, {}};
  for (const char* path : {"photo\u202egpj", "אבג/דהו"}) {
    result.failures.push_back({path, path, "Changed."});
  }
  clean(result);
  const QAbstractItemModel& rows = *test::find<RecordList>(screen(), "failures").model();
  const QString unusual = "photo\\u202egpj · Unusual characters · Changed.";
  const QString usual = "אבג/דהו · Changed.";
  for (const int role :
       {Qt::DisplayRole, Qt::AccessibleTextRole}) {  // what is copied, what is read
    EXPECT_EQ(rows.index(0, 0).data(role), unusual);
    EXPECT_EQ(rows.index(1, 0).data(role), usual);
  }
  EXPECT_EQ(rows.index(0, 0).data(RecordModel::WarningRole), "Unusual characters");
  EXPECT_EQ(rows.index(1, 0).data(RecordModel::WarningRole), "");
}

TEST_F(Summary, IsGreenOrOrange) {
  for (const Qt::GlobalColor behind : {Qt::white, Qt::black}) {
    const ui::Theme& theme = ui::Theme::of(QPalette(behind));
    EXPECT_THAT(theme.colour(ui::Tone::safe).hue(), AllOf(Ge(90), Le(160)));
    EXPECT_THAT(theme.colour(ui::Tone::usuallySafe).hue(), AllOf(Ge(20), Le(45)));
  }
}

TEST_F(Summary, ShowsNothingWithoutACleanup) {
  test.model().setRoute(Route::summary);
  EXPECT_THAT(test::texts(screen()), ElementsAre("Cleanup complete", "Zero KB", "0", "0",
                                                 "Moved to Trash", "Items moved", "Failed"));
  EXPECT_EQ(outcome().name(), "checkmark.circle.fill");
}

TEST_F(Summary, LeadsHomeAndToTheHistory) {
  clean({});
  EXPECT_EQ(test::find<QAbstractButton>(screen(), "viewHistory").text(), "View History");
  EXPECT_EQ(test::find<QAbstractButton>(screen(), "done").text(), "Done");
  test::click(test::find(screen(), "viewHistory"));
  test.runUntil(Route::history);
  test.model().setRoute(Route::summary);
  test::press(Qt::Key_Return);
  EXPECT_EQ(screen().objectName(), "welcome");
  EXPECT_EQ(test.model().rootURL(), std::nullopt);
}

TEST_F(Summary, KeepsTheLookOfItsDefaultActionWhereverTheFocusIs) {
  clean({});
  const auto& history = test::find<QPushButton>(screen(), "viewHistory");
  const auto& done = test::find<QPushButton>(screen(), "done");
  for (int tab = 0; tab < 4; ++tab) {
    EXPECT_FALSE(history.isDefault()) << tab;
    EXPECT_TRUE(done.isDefault()) << tab;
    test::press(Qt::Key_Tab);
  }
}

}  // namespace
}  // namespace broomtide
