// All screens but the results, and the alert over them.

#include <QAccessible>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QListView>
#include <QMimeData>
#include <QPushButton>
#include <semaphore>

#include "support/TemporaryTree.h"
#include "ui/Person.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using test::selectedItem;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::SizeIs;

class Welcome : public test::AtTheWindow {
 protected:
  Welcome() : AtTheWindow(std::nullopt) {}

  // Drops it on a card, and says whether it was taken.
  bool drop(const QByteArray& urls) {
    QMimeData data;
    data.setData("text/uri-list", urls);
    QWidget& target = find("projectCard");
    const QPoint place = target.rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted();
  }

  static QByteArray url(const std::string& path) {
    return "file://" + QByteArray::fromStdString(path).toPercentEncoding("/") + "\r\n";
  }

  test::TemporaryTree tree;
};

TEST_F(Welcome, CardsSayWhatTheyScanAndAskForTheFolder) {
  test.picker.downloads = tree.folder("Downloads");
  const std::optional<std::string> downloads = test.picker.downloads;
  int tabs = 0;
  for (const auto& [name, spoken, mode, startingAt] :
       std::vector<std::tuple<const char*, QString, ScanMode, std::optional<std::string>>>{
           {"projectCard", "Scan Project Folder", ScanMode::project, std::nullopt},
           {"cachesCard", "Scan Developer Caches", ScanMode::caches, std::nullopt},
           {"downloadsCard", "Scan Downloads", ScanMode::downloads, downloads},
       }) {
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&find(name))->text(QAccessible::Name), spoken);
    for (const Qt::Key key : {Qt::Key_unknown, Qt::Key_Space, Qt::Key_Return}) {
      test.model().setRoute(Route::welcome);  // anew, with the focus at its start
      test.picker.requests.clear();
      for (int tab = 0; tab < tabs; ++tab) test::press(Qt::Key_Tab);
      key == Qt::Key_unknown ? test::click(find(name)) : test::press(key);
      ASSERT_THAT(test.picker.requests, SizeIs(1)) << name << key;
      EXPECT_EQ(test.picker.requests.front().mode, mode);
      EXPECT_EQ(test.picker.requests.front().startingAt, startingAt);
      EXPECT_EQ(test.model().route(), Route::welcome);  // nothing was chosen
    }
    ++tabs;
  }
}

TEST_F(Welcome, OneFolderThatIsDroppedIsScannedAsProjects) {
  for (const char* name : {"plain", "100%", "%41", "a#b?c;d", "a\u0308", "not \xff UTF-8",
                           "new\nline", "back\\slash"}) {
    const std::string folder = tree.folder(name);
    test.script.scanned.clear();
    test.script.scans.emplace_back([](const auto&, const auto&) { return ScanResult(); });
    ASSERT_TRUE(drop(url(folder))) << name;
    test.runUntil(Route::results);
    EXPECT_THAT(test.script.scanned, ElementsAre(std::pair(folder, ScanMode::project)));
    test.model().returnHome();
  }
  const QByteArray path = QByteArray::fromStdString(tree.path("plain"));
  for (const QByteArray& urls :
       {url(tree.file("file")), url(tree.path("missing")), url(tree.path("plain")) + url("/"),
        "https://broomtide.example" + path, "file://elsewhere.example" + path,
        "file://" + path + "%00hidden", "file://" + path + "#more", "file://" + path + "?more",
        "file:" + path.mid(1), QByteArray()}) {
    EXPECT_FALSE(drop(urls)) << urls.toStdString();
    EXPECT_EQ(test.model().route(), Route::welcome);
  }
}

using Scanning = test::AtTheWindow;

TEST_F(Scanning, NamesTheFolderAndShowsHowFarItIs) {
  for (const auto& [root, shown] : std::vector<std::pair<std::string, std::string>>{
           {"/home/ada/src/", "Scanning src"}, {"/home/ada/<b>&x\n", "Scanning <b>&x\\n"}}) {
    test.script.scans.emplace_back(
        [](const UpdateFunction& onUpdate, const std::stop_token& stop) -> ScanResult {
          test::tell(onUpdate, {1234567, 1'500'000, "two\nlines"}, {{selectedItem("a")}}, 0);
          test::waitFor(stop);
          throw CancellationError();
        });
    test.model().beginScan(root, ScanMode::project, true);
    test.runUntil([&] { return textOf("currentPath") == "two\\nlines"; });
    EXPECT_THAT(test::texts(screen()), ElementsAre(shown, "two\\nlines", "1234567", "1.5 MB", "1",
                                                   "Items scanned", "Reclaimable", "Matches"));
  }
}

TEST_F(Scanning, ShortensALongPathInItsMiddle) {
  test.model().setRoute(Route::scanning);
  const auto drawn = [this](const QString& path) {
    find<QLabel>("currentPath").setText(path);
    QCoreApplication::processEvents();  // room is made for it
    return find<QLabel>("currentPath").grab().toImage();
  };
  const QString folders = QString("folder/").repeated(40);
  const QImage path = drawn("first/" + folders + "a/" + folders + "last");
  EXPECT_EQ(path, drawn("first/" + folders + "b/" + folders + "last"));
  EXPECT_NE(path, drawn("first/" + folders + "a/" + folders + "end"));
}

// Return and Space may still be meant for the dialog before.
TEST_F(Scanning, OnlyEscapeAndItsButtonLeaveIt) {
  for (const auto& keys : std::vector<std::vector<Qt::Key>>{
           {Qt::Key_Escape}, {Qt::Key_Tab, Qt::Key_Return}, {Qt::Key_Tab, Qt::Key_Space}}) {
    std::latch stopped(1);
    test.script.scans.push_back(test::scanUntilStopped(stopped));
    test.model().beginScan("/home/ada/src", ScanMode::project, true);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) test::press(key);
    EXPECT_EQ(screen().objectName(), "scanning");
    for (const Qt::Key key : keys) test::press(key);
    EXPECT_EQ(screen().objectName(), "welcome");
    stopped.wait();
    EXPECT_EQ(test::alert(test.window()), nullptr);
  }
}

class Confirmation : public test::AtTheWindow {
 protected:
  Confirmation() {
    test.script.clean = [this](const std::vector<ScanCandidate>& items, const auto& stop) {
      hasBegun.release();
      mayEnd.acquire();
      EXPECT_FALSE(stop.stop_requested()) << "only closing the window stops a cleanup";
      return CleanupResult{items, {}};
    };
  }

  ~Confirmation() override { mayEnd.release(); }

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
};

TEST_F(Confirmation, SaysWhatWillHappenAndPointsOutNamesThatAreNotWhatTheySeem) {
  const ScanCandidate left = test::makeCandidate("left\n");
  confirm({selectedItem("a", 1'000'000), selectedItem("b", 500'000), left});
  EXPECT_THAT(test::texts(screen()),
              ElementsAre("Move selected items to Trash?", "2 item(s) totaling 1.5 MB",
                          "Items are moved to macOS Trash, not permanently deleted. Broomtide "
                          "will validate every item again before moving it."));
  confirm({selectedItem("photo\u202egpj/build"), selectedItem("\xff"), selectedItem("a"), left});
  EXPECT_THAT(test::texts(screen()),
              testing::Contains("2 of them with unusual characters in the path"));
}

TEST_F(Confirmation, CanBeLeftInEveryWayBeforeAndWhileItemsAreMoved) {
  const auto pressFocused = [this](const char* name) {
    while (!find(name).hasFocus()) test::press(Qt::Key_Tab);
    test::press(Qt::Key_Return);
  };
  const std::vector<std::pair<std::function<void()>, Route>> ways{
      {[] { test::press(Qt::Key_Escape); }, Route::results},
      {[this] { test::click(find("cancel")); }, Route::results},
      {[&] { pressFocused("home"); }, Route::welcome},
  };
  for (const bool isMoving : {false, true}) {
    for (const auto& [leave, route] : ways) {
      confirm({selectedItem("a")});
      if (isMoving) {
        test::click(find("moveToTrash"));
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
    confirm({selectedItem("a")});
    for (int times = 0; times < 5; ++times) test::repeat(key);  // held down since the results
    EXPECT_FALSE(test.model().isCleaning());
    test::press(key);
    hasBegun.acquire();
    for (const bool isBack : {false, true}) {
      if (isBack) {
        test::press(Qt::Key_Escape);
        test::press(Qt::Key_Return);
      }
      test::press(key);
      ASSERT_EQ(screen().objectName(), "confirmation");
      EXPECT_EQ(find<QPushButton>("moveToTrash").text(), "Moving…");
    }
    finish();
  }
  EXPECT_EQ(test.script.cleanups, 2);
}

class Afterwards : public test::AtTheWindow {
 protected:
  // Goes all the way to the summary of a cleanup with this result.
  void clean(CleanupResult result) {
    test.script.clean = [result = std::move(result)](const auto&, const auto&) { return result; };
    test.scan({{selectedItem("a")}, {}, {}});
    test::press(Qt::Key_Return);
    test::press(Qt::Key_Return);
    test.runUntil(Route::summary);
  }

  void openHistory() {
    test::click(find("viewHistory"));
    test.runUntil(Route::history);
  }
};

TEST_F(Afterwards, TheSummaryListsWhatWasLeftAloneAndPointsOutNamesThatAreNotWhatTheySeem) {
  clean({{selectedItem("a", 1'000'000), selectedItem("b", 500'000)}, {}});
  EXPECT_THAT(test::texts(screen()), ElementsAre("Cleanup complete", "1.5 MB", "2", "0",
                                                 "Moved to Trash", "Items moved", "Failed"));
  EXPECT_EQ(screen().findChild<QListView*>(), nullptr);
  CleanupResult result;
  for (const char* path : {"photo\u202egpj", "אבג/<b>"})
    result.failures.push_back({path, path, "The item changed after the scan."});
  clean(result);
  EXPECT_THAT(test::texts(screen()), IsSupersetOf({"Zero KB", "0", "2"}));
  const QAbstractItemModel& list = *find<QListView>("failures").model();
  for (const int role : {Qt::DisplayRole, Qt::AccessibleTextRole}) {  // what is copied and read
    EXPECT_EQ(list.index(0, 0).data(role),
              "photo\\u202egpj · Unusual characters · The item changed after the scan.");
    EXPECT_EQ(list.index(1, 0).data(role), "אבג/<b> · The item changed after the scan.");
  }
  test::press(Qt::Key_Return);
  EXPECT_EQ(screen().objectName(), "welcome");
}

TEST_F(Afterwards, TheHistoryListsCleanupsAndLeadsBackToWherePeopleCameFrom) {
  openHistory();
  EXPECT_THAT(test::texts(screen()), testing::Contains("No cleanup history"));
  test::press(Qt::Key_Escape);
  EXPECT_EQ(screen().objectName(), "welcome");
  constexpr Date march = std::chrono::sys_days{2025y / 3 / 1} + 9h + 30min;
  test.script.history = {
      {"2", march, "/home/ada/<i>a\n", 5'000'000'000, 0, {{"f", "x", "left alone"}}},
      {"3", march + 12h, "/", 1234, 2'345'000'000, {}},
  };
  clean({});
  openHistory();  // shows the cleanup right away
  const QAbstractItemModel& entries = *find<QListView>("entries").model();
  ASSERT_EQ(entries.rowCount(), 3);
  EXPECT_EQ(entries.index(1, 0).data().toString(),
            "/home/ada/<i>a\\n · Unusual characters · Mar 1, 2025 at 9:30 AM · 2147483647 item(s) "
            "· Zero KB");
  EXPECT_EQ(entries.index(2, 0).data().toString(),
            "/ · Mar 1, 2025 at 9:30 PM · 1234 item(s) · 2.35 GB");
  test::click(find("back"));
  EXPECT_EQ(screen().objectName(), "summary");
}

class Alert : public test::AtTheWindow {
 protected:
  // A folder without caches is refused, by its name.
  QMessageBox& fail(const std::string& name) {
    test.picker.answer = "/nowhere/" + name;
    test.model().presentFolderPicker(std::nullopt, ScanMode::caches);
    test.runUntil([&] { return test::alert(test.window()) != nullptr; });
    return *test::alert(test.window());
  }
};

TEST_F(Alert, ShowsTheMessageAndNothingOfItAsMarkup) {
  QMessageBox& alert = fail("<b>bold &amp;\x1b[31m");
  EXPECT_EQ(alert.text(),
            "No known developer cache locations were found under “<b>bold &amp;\\x1b[31m”. When "
            "scanning developer caches, select your home folder (/home/ada) in the picker.");
  EXPECT_EQ(alert.textFormat(), Qt::PlainText);
}

TEST_F(Alert, TheLatestMessageStays) {
  fail("first");
  EXPECT_TRUE(fail("second").text().contains("“second”"));
  test::alert(test.window())->close();
  fail("third");  // before the alert is gone for good
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_NE(test::alert(test.window()), nullptr);
  EXPECT_TRUE(test::alert(test.window())->text().contains("“third”"));
}

}  // namespace
}  // namespace broomtide
