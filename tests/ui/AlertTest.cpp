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
           {"<b>bold &amp; <img src='x'>", "<b>bold &amp; <img src='x'>"},
           {"two\nlines\x1b[31m", "two\\nlines\\x1b[31m"},
       }) {
    fail(name);
    QMessageBox& alert = *test::alert(test.window());
    EXPECT_EQ(alert.text(), refusal(shown));
    EXPECT_EQ(alert.textFormat(), Qt::PlainText);
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
  EXPECT_EQ(test::alert(test.window())->text(), refusal("second"));
  test::alert(test.window())->close();
  EXPECT_EQ(test::alert(test.window()), nullptr);
}

TEST_F(Alert, AMessageRightAfterADismissalStays) {
  fail("first");
  test::alert(test.window())->close();
  fail("second");  // before the first alert is gone for good
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_NE(test::alert(test.window()), nullptr);
  EXPECT_EQ(test::alert(test.window())->text(), refusal("second"));
}

}  // namespace
}  // namespace broomtide
