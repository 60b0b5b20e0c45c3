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

TEST_F(Summary, ListsWhatWasLeftAloneAndPointsOutNamesThatAreNotWhatTheySeem) {
  CleanupResult result{{test::selectedItem("a", 1)}, {}};
  for (const char* path : {"photo\u202egpj", "אבג/<b>"})
    result.failures.push_back({path, path, "The item changed after the scan."});
  clean(result);
  EXPECT_EQ(outcome().name(), "exclamationmark.circle.fill");
  EXPECT_EQ(outcome().tone(), ui::Tone::usuallySafe);
  EXPECT_THAT(test::texts(screen()), ElementsAre("Cleanup complete", "1 byte", "1", "2",
                                                 "Moved to Trash", "Items moved", "Failed"));
  const auto& list = test::find<RecordList>(screen(), "failures");
  const QModelIndex unusual = list.model()->index(0, 0);
  const QModelIndex usual = list.model()->index(1, 0);
  for (const int role : {Qt::DisplayRole, Qt::AccessibleTextRole}) {  // what is copied and read
    EXPECT_EQ(unusual.data(role),
              "photo\\u202egpj · Unusual characters · The item changed after the scan.");
    EXPECT_EQ(usual.data(role), "אבג/<b> · The item changed after the scan.");
  }
  EXPECT_EQ(unusual.data(RecordModel::WarningRole), "Unusual characters");
  EXPECT_EQ(unusual.data(RecordModel::SubtitleRole), "The item changed after the scan.");
  EXPECT_EQ(usual.data(RecordModel::WarningRole), "");
  for (const int width : {820, 2560}) {
    test.window().resize(width, 800);
    test::TestWindow::runUntil([&] { return test.window().width() == width; });
    QCoreApplication::processEvents();
    EXPECT_EQ(list.height(), 220);
    EXPECT_THAT(list.width(), AllOf(Ge(500), Le(620)));
  }
}

TEST_F(Summary, LeadsHomeAndToTheHistory) {
  clean({});
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
