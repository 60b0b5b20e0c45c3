// The window around the screens: its size, its menus, its panel, and what closing it does.

#include <QDesktopServices>
#include <QMenuBar>
#include <QUrl>

#include "ui/Person.h"

namespace broomtide {
namespace {

using testing::ElementsAre;

// Stands in for the web browser, as long as it lives.
class Browser final : public QObject {
  Q_OBJECT
 public:
  Browser() { QDesktopServices::setUrlHandler("https", this, "open"); }
  ~Browser() override { QDesktopServices::unsetUrlHandler("https"); }

  std::vector<std::string> opened;

 public Q_SLOTS:
  void open(const QUrl& address) { opened.push_back(address.toString().toStdString()); }
};

class Shell : public testing::Test {
 protected:
  Shell() { test::show(test.window()); }

  void choose(const QString& command) {
    for (QAction* action : test.window().menuBar()->findChildren<QAction*>()) {
      if (action->text().remove('&') == command) return action->trigger();
    }
    FAIL() << "no such command";
  }

  test::TestWindow test;
};

TEST_F(Shell, ItsContentIsNeverTooSmall) {
  test.window().resize(100, 100);
  test::TestWindow::runUntil([&] { return test.window().width() < 1000; });
  EXPECT_EQ(test.window().centralWidget()->size(), QSize(820, 600));
}

TEST_F(Shell, CommandsOpenTheWebsite) {
  Browser browser;
  choose("Check for Updates…");
  choose("Broomtide Website");
  choose("Privacy Policy");
  EXPECT_THAT(browser.opened,
              ElementsAre("https://broomtide.example/releases/", "https://broomtide.example/",
                          "https://broomtide.example/docs/privacy/"));
}

TEST_F(Shell, AboutTellsTheVersion) {
  choose("About Broomtide");
  EXPECT_EQ(test::find<QMessageBox>(test.window(), "about").text(), "Broomtide 0.1.0");
  test::press(Qt::Key_Escape);
  EXPECT_TRUE(test.window().isEnabled());
}

TEST_F(Shell, TheOneSettingsPanelTellsTheVersionAndThatNothingLeaves) {
  const QString known = QCoreApplication::applicationVersion();
  for (const auto& [version, shown] : std::vector<std::pair<QString, const char*>>{
           {known, "Version 0.1.0"},
           {"", "Version —"},
       }) {
    QCoreApplication::setApplicationVersion(version);
    for (int times = 0; times < 2; ++times) {
      test::show(test.window());
      test::press(Qt::Key_Comma, Qt::ControlModifier);
    }
    auto& panel = test::find(test.window(), "settings");
    EXPECT_THAT(test::texts(panel),
                ElementsAre("Broomtide",
                            "Scans stay on this Mac. Broomtide never uploads file names, paths, "
                            "or scan results.",
                            shown));
    const auto& promise = test::find<QLabel>(panel, "promise");
    EXPECT_GE(promise.height(), promise.heightForWidth(promise.width()));  // none of it is cut off
    test::TestWindow::runUntil([&] { return panel.isActiveWindow(); });
    test::press(Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  QCoreApplication::setApplicationVersion(known);
}

TEST_F(Shell, ClosingItStopsAScanAtOnce) {
  std::latch hasStopped(1);
  test.script.scans.push_back(test::scanUntilStopped(hasStopped));
  test.model().beginScan("/root", ScanMode::project, true);
  test::press(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(test.window().isVisible());
  hasStopped.wait();  // while the window and the model are still there
}

TEST_F(Shell, ClosingItAsksACleanupToStop) {
  std::latch hasBegun(1), isClosed(1), isOver(1);
  bool isAsked = false;
  test.script.clean = [&](const std::vector<ScanCandidate>& items, const std::stop_token& stop) {
    hasBegun.count_down();
    isClosed.wait();
    isAsked = stop.stop_requested();
    isOver.count_down();
    return CleanupResult{items, {}};
  };
  test.scan({{test::selectedItem("a", 5)}, {}, {}});
  test::press(Qt::Key_Return);
  test::press(Qt::Key_Return);
  hasBegun.wait();
  test.window().close();
  isClosed.count_down();
  isOver.wait();
  EXPECT_TRUE(isAsked);
}

}  // namespace
}  // namespace broomtide

#include "ShellTest.moc"
