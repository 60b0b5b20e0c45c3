// The window around the screens: its size, its menus, its panel, and what closing it does.

#include <QDesktopServices>
#include <QMenuBar>
#include <QUrl>

#include "ui/Person.h"

namespace broomtide {
namespace {

using testing::Contains;
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

QString withoutMnemonic(QString text) { return text.remove('&'); }

class Shell : public testing::Test {
 protected:
  Shell() { test::show(test.window()); }

  QAction& menuEntry(const QString& name) {
    for (QAction* entry : test.window().menuBar()->actions()) {
      if (withoutMnemonic(entry->text()) == name) return *entry;
    }
    throw std::logic_error("no such menu");
  }

  std::vector<std::string> commands(const QString& menu) {
    std::vector<std::string> result;
    for (const QAction* action : menuEntry(menu).menu()->actions()) {
      if (!action->isSeparator()) result.push_back(withoutMnemonic(action->text()).toStdString());
    }
    return result;
  }

  // Opens a menu and clicks a command.
  void choose(const QString& menuName, const QString& command) {
    QMenuBar* bar = test.window().menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(&menuEntry(menuName)).center());
    QMenu* menu = menuEntry(menuName).menu();
    ASSERT_TRUE(menu->isVisible());
    for (QAction* action : menu->actions()) {
      if (withoutMnemonic(action->text()) != command) continue;
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      return;
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

TEST_F(Shell, EachRouteHasItsScreenInTheOneWindow) {
  using enum Route;
  for (const auto& [route, name] : std::vector<std::pair<Route, const char*>>{
           {scanning, "scanning"},
           {results, "results"},
           {confirmation, "confirmation"},
           {summary, "summary"},
           {history, "history"},
           {welcome, "welcome"},
       }) {
    test.model().setRoute(route);
    QCoreApplication::processEvents();
    QWidget& screen = test::screen(test.window());
    EXPECT_EQ(screen.objectName(), name);
    EXPECT_TRUE(screen.isVisible());
    // Keys go to what is seen.
    EXPECT_TRUE(&screen == QApplication::focusWidget() ||
                screen.isAncestorOf(QApplication::focusWidget()))
        << name;
    const QWidgetList all = QApplication::topLevelWidgets();
    EXPECT_EQ(std::ranges::count_if(all, &QWidget::isVisible), 1);
  }
}

TEST_F(Shell, CommandsOpenTheWebsite) {
  Browser browser;
  EXPECT_THAT(commands("Broomtide"),
              ElementsAre("About Broomtide", "Check for Updates…", "Settings…", "Quit"));
  EXPECT_THAT(commands("Help"), ElementsAre("Broomtide Website", "Privacy Policy"));
  choose("Broomtide", "Check for Updates…");
  choose("Help", "Broomtide Website");
  choose("Help", "Privacy Policy");
  EXPECT_THAT(browser.opened,
              ElementsAre("https://broomtide.example/releases/", "https://broomtide.example/",
                          "https://broomtide.example/docs/privacy/"));
}

TEST_F(Shell, AboutTellsTheVersion) {
  choose("Broomtide", "About Broomtide");
  EXPECT_EQ(test::find<QMessageBox>(test.window(), "about").text(), "Broomtide 0.1.0");
  test::press(Qt::Key_Escape);
  EXPECT_TRUE(test.window().isEnabled());
}

TEST_F(Shell, SettingsTellTheVersionAndThatNothingLeaves) {
  const QString known = QCoreApplication::applicationVersion();
  for (const auto& [version, shown] : std::vector<std::pair<QString, const char*>>{
           {known, "Version 0.1.0"},
           {"", "Version —"},
       }) {
    QCoreApplication::setApplicationVersion(version);
    test::show(test.window());
    test::press(Qt::Key_Comma, Qt::ControlModifier);
    auto& panel = test::find(test.window(), "settings");
    EXPECT_EQ(panel.width(), 420);
    EXPECT_THAT(test::texts(panel),
                ElementsAre("Broomtide",
                            "Scans stay on this Mac. Broomtide never uploads file names, paths, "
                            "or scan results.",
                            shown));
    test::show(test.window());
    test::press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(&test::find(test.window(), "settings"), &panel);  // there is but one
    const auto& promise = test::find<QLabel>(panel, "promise");
    EXPECT_GE(promise.height(), promise.heightForWidth(promise.width()));  // none of it is cut off
    const QPointer<QWidget> life(&panel);
    test::TestWindow::runUntil([&] { return panel.isActiveWindow(); });
    test::press(Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(life, nullptr);
  }
  QCoreApplication::setApplicationVersion(known);
}

// The model and its window apart, so that they can go while what they did is still looked at.
struct Running {
  explicit Running(test::Script& script) {
    model = std::make_unique<AppModel>(
        AppModel::Services{.scanner = std::make_unique<test::ScriptedScanner>(script),
                           .trashManager = std::make_unique<test::ScriptedTrash>(script),
                           .historyStore = std::make_unique<test::ScriptedHistory>(script)},
        AppModel::Surroundings{.mainThread = main,
                               .folderPicker = picker,
                               .access = access,
                               .homeFolder = std::nullopt});
    window = std::make_unique<ui::MainWindow>(*model);
    test::show(*window);
  }

  test::ScriptedPicker picker;
  test::RecordedAccess access;
  ui::QtMainThread main;
  std::unique_ptr<AppModel> model;
  std::unique_ptr<ui::MainWindow> window;
};

TEST(ClosingTheWindow, StopsAScanAtOnce) {
  std::latch hasStopped(1);
  test::Script script;
  script.scans.push_back(test::scanUntilStopped(hasStopped));
  Running running(script);
  running.model->beginScan("/root", ScanMode::project, true);
  test::press(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(running.window->isVisible());
  hasStopped.wait();  // while the window and the model are still there
}

TEST(ClosingTheWindow, LetsACleanupFinishItsItemAndRecordsIt) {
  std::latch hasBegun(1), isClosed(1), isMoved(1);
  test::Script script;
  script.scans.push_back([](const auto&, const auto&) {
    return ScanResult{{test::selectedItem("a", 5), test::selectedItem("b", 7)}, {}, {}};
  });
  script.clean = [&](const std::vector<ScanCandidate>& items, const std::stop_token& stop) {
    hasBegun.count_down();
    isClosed.wait();
    CleanupResult result{{items.front()}, {}};
    if (!stop.stop_requested()) result.moved = items;
    isMoved.count_down();
    return result;
  };
  auto running = std::make_unique<Running>(script);
  running->model->beginScan("/root", ScanMode::project, true);
  test::TestWindow::runUntil([&] { return running->model->route() == Route::results; });
  test::press(Qt::Key_Return);
  test::press(Qt::Key_Return);
  hasBegun.wait();
  running->window->close();
  EXPECT_FALSE(running->window->isVisible());
  isClosed.count_down();
  isMoved.wait();  // so that it was the window that asked for an end
  running.reset();
  ASSERT_EQ(script.history.size(), 1U);
  EXPECT_EQ(script.history.front().movedBytes, 5);
}

}  // namespace
}  // namespace broomtide

#include "ShellTest.moc"
