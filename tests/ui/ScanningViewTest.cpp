#include <semaphore>

#include "ui/Person.h"
#include "ui/controls/Label.h"
#include "ui/controls/Metric.h"

namespace broomtide {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;

class Scanning : public testing::Test {
 protected:
  Scanning() { test::show(test.window()); }

  QWidget& screen() { return test::screen(test.window()); }
  QString heading() { return test::find<QLabel>(screen(), "heading").text(); }
  std::string value(const char* metric) {
    return test::find<ui::Metric>(screen(), metric).value().toStdString();
  }

  // The current path as it is drawn.
  QImage drawn(const QString& path) {
    auto& label = test::find<QLabel>(screen(), "currentPath");
    label.setText(path);
    QCoreApplication::processEvents();  // room is made for it
    return label.grab().toImage();
  }

  std::counting_semaphore<> mayGoOn{0};
  test::TestWindow test;
};

TEST_F(Scanning, NamesTheFolder) {
  test.model().setRoute(Route::scanning);
  EXPECT_EQ(heading(), "Scanning folder");
  for (const auto& [root, shown] : std::vector<std::pair<std::string, QString>>{
           {"/home/ada/src/", "Scanning src"},
           {"/home/ada/<b>&x\n", "Scanning <b>&x\\n"},
           {"/", "Scanning /"},
       }) {
    test.script.scans.emplace_back([](const auto&, const auto&) { return ScanResult(); });
    test.model().beginScan(root, ScanMode::project, true);
    EXPECT_EQ(heading(), shown);
    test.runUntil(Route::results);
  }
}

TEST_F(Scanning, ShowsHowFarItIs) {
  test.script.scans.emplace_back(
      [this](const UpdateFunction& onUpdate, const std::stop_token& stop) -> ScanResult {
        std::vector<ScanCandidate> found{test::selectedItem("a", 1)};
        test::tell(onUpdate, {1234567, 1'500'000, "web/node_modules"}, found, 0);
        mayGoOn.acquire();
        found.push_back(test::selectedItem("b", 1));
        test::tell(onUpdate, {1234568, 2'345'000'000, "two\nlines"}, found, 1);
        test::waitFor(stop);
        throw CancellationError();
      });
  test.model().beginScan("/home/ada/src", ScanMode::project, true);
  test::TestWindow::runUntil([&] { return value("itemsScanned") == "1234567"; });
  EXPECT_THAT(test::texts(screen()),
              ElementsAre("Scanning src", "web/node_modules", "1234567", "1.5 MB", "1",
                          "Items scanned", "Reclaimable", "Matches"));
  mayGoOn.release();
  test::TestWindow::runUntil([&] { return value("itemsScanned") == "1234568"; });
  EXPECT_THAT(test::texts(screen()), IsSupersetOf({"two\\nlines", "2.35 GB", "2"}));
}

TEST_F(Scanning, ShortensALongPathInItsMiddle) {
  test.model().setRoute(Route::scanning);
  test.window().resize(2560, 1440);
  test::TestWindow::runUntil([&] { return test.window().width() == 2560; });
  const QString folders = QString("folder/").repeated(40);
  const QImage path = drawn("first/" + folders + "a/" + folders + "last");
  EXPECT_LE(path.width(), 520);
  EXPECT_LT(path.height(), 2 * QFontMetrics(ui::fontFor(ui::TextStyle::body)).height());
  EXPECT_EQ(path, drawn("first/" + folders + "b/" + folders + "last"));
  EXPECT_NE(path, drawn("other/" + folders + "a/" + folders + "last"));
  EXPECT_NE(path, drawn("first/" + folders + "a/" + folders + "end"));
  EXPECT_EQ(test::find(screen(), "currentPath").height(), path.height());  // nothing moves
}

TEST_F(Scanning, GoingHomeStopsItWithoutAWord) {
  for (const bool byKeyboard : {false, true}) {
    std::latch isStopped(1);
    test.script.scans.push_back(test::scanUntilStopped(isStopped));
    test.model().beginScan("/home/ada/src", ScanMode::project, true);
    if (byKeyboard) {
      test::press(Qt::Key_Escape);
    } else {
      test::click(test::find(screen(), "backToHome"));
    }
    EXPECT_EQ(screen().objectName(), "welcome");
    isStopped.wait();
    EXPECT_EQ(test.model().errorMessage(), std::nullopt);
    EXPECT_EQ(test::alert(test.window()), nullptr);
  }
}

}  // namespace
}  // namespace broomtide
