// What went wrong is told in an alert over the window.

#include <QAbstractButton>

#include "ui/Person.h"

namespace broomtide {
namespace {

class Alert : public testing::Test {
 protected:
  Alert() { test::show(test.window()); }

  // A folder without caches is refused, by its name.
  void fail(const std::string& name) {
    test.picker.answer = "/nowhere/" + name;
    test.model().presentFolderPicker(std::nullopt, ScanMode::caches);
    test::TestWindow::runUntil([&] { return test::alert(test.window()) != nullptr; });
  }

  // What the alert says of that folder.
  static QString refusal(const QString& name) {
    return QStringLiteral(
               "No known developer cache locations were found under “%1”. When scanning developer "
               "caches, select your home folder (/home/ada) in the picker.")
        .arg(name);
  }

  test::TestWindow test;
};

TEST_F(Alert, ShowsTheMessageAndNothingOfItAsMarkup) {
  for (const auto& [name, shown] : std::vector<std::pair<std::string, QString>>{
           {"plain", "plain"},
           {"<b>bold &amp; <img src='x'>", "<b>bold &amp; <img src='x'>"},
           {"two\nlines", "two\\nlines"},
           {"\x1b[31mred", "\\x1b[31mred"},
           {"left\u202eright", "left\\u202eright"},
           {"back\\slash", "back\\\\slash"},
           {"not \xff UTF-8", "not \ufffd UTF-8"},
       }) {
    fail(name);
    QMessageBox& alert = *test::alert(test.window());
    EXPECT_EQ(alert.windowTitle(), "Broomtide");
    EXPECT_EQ(alert.text(), refusal(shown));
    EXPECT_EQ(alert.textFormat(), Qt::PlainText);
    ASSERT_EQ(alert.buttons().size(), 1);
    EXPECT_EQ(alert.buttons().front()->text().remove('&'), "OK");
    alert.close();
  }
}

TEST_F(Alert, IsDismissedInAnyWay) {
  const std::vector<std::function<void(QMessageBox&)>> ways{
      [](QMessageBox& alert) { test::click(*alert.buttons().front()); },
      [](QMessageBox&) { test::press(Qt::Key_Escape); },
      [](QMessageBox&) { test::press(Qt::Key_Return); },
      [](QMessageBox&) { test::press(Qt::Key_Space); },
      [](QMessageBox& alert) { alert.close(); },
  };
  for (std::size_t way = 0; way < ways.size(); ++way) {
    fail("folder");
    QMessageBox& alert = *test::alert(test.window());
    test::TestWindow::runUntil([&] { return alert.isActiveWindow(); });
    ways[way](alert);
    EXPECT_EQ(test.model().errorMessage(), std::nullopt) << way;
    EXPECT_EQ(test::alert(test.window()), nullptr) << way;
    EXPECT_EQ(test.model().route(), Route::welcome);  // the key went no further
    EXPECT_EQ(test.picker.requests.size(), way + 1);
  }
}

TEST_F(Alert, ShowsTheLatestOfTwoMessages) {
  fail("first");
  fail("second");
  QMessageBox* alert = test::alert(test.window());
  EXPECT_EQ(alert->text(), refusal("second"));
  alert->close();
  EXPECT_EQ(test::alert(test.window()), nullptr);
  EXPECT_EQ(test.model().errorMessage(), std::nullopt);
}

TEST_F(Alert, AMessageRightAfterADismissalStays) {
  fail("first");
  test::alert(test.window())->close();
  fail("second");  // before the first alert is gone for good
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_NE(test::alert(test.window()), nullptr);
  EXPECT_EQ(test::alert(test.window())->text(), refusal("second"));
}

TEST_F(Alert, TellsOfACancelledScanOverTheStartScreen) {
  std::latch hasStopped(1);
  test.script.scans.push_back(test::scanUntilStopped(hasStopped));
  test.model().beginScan("/root", ScanMode::project, true);
  test.model().requestStop();
  test.runUntil(Route::welcome);
  ASSERT_NE(test::alert(test.window()), nullptr);
  EXPECT_EQ(test::alert(test.window())->text(), "Scan cancelled. No files were changed.");
  EXPECT_EQ(test::screen(test.window()).objectName(), "welcome");
}

}  // namespace
}  // namespace broomtide
