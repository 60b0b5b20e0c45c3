// What surrounds the screens: the window and its menus, the folder dialog, keys that are held down,
// the colours of the desktop, and the main thread.

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusVariant>
#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QListView>
#include <QMenuBar>
#include <QProcess>
#include <QSettings>
#include <QStyledItemDelegate>
#include <QTimer>
#include <atomic>
#include <thread>

#include "app/FolderChoice.h"
#include "support/TemporaryTree.h"
#include "ui/Person.h"
#include "ui/SpokenLanguage.h"
#include "ui/controls/Keys.h"
#include "ui/look/Theme.h"
#include "ui/shell/CommandLine.h"
#include "ui/shell/DesktopColours.h"
#include "ui/shell/FolderDialog.h"

namespace broomtide {
namespace {

using testing::ElementsAre;

class Shell : public test::AtTheWindow {
 protected:
  void choose(const QString& command) {
    for (QAction* action : test.window().menuBar()->findChildren<QAction*>()) {
      if (action->text().remove('&') == command) return action->trigger();
    }
    FAIL() << "no such command";
  }
};

TEST_F(Shell, CommandsOpenTheWebsite) {
  test::UrlCatcher browser("https");
  for (const char* command : {"Check for Updates…", "Broomtide Website", "Privacy Policy"})
    choose(command);
  EXPECT_THAT(browser.opened,
              ElementsAre("https://broomtide.example/releases/", "https://broomtide.example/",
                          "https://broomtide.example/docs/privacy/"));
}

TEST_F(Shell, TheOneSettingsPanelTellsTheVersion) {
  const QString known = QCoreApplication::applicationVersion();
  QCoreApplication::setApplicationVersion("");
  for (int times = 0; times < 2; ++times) {
    test::show(test.window());
    test::press(Qt::Key_Comma, Qt::ControlModifier);
  }
  EXPECT_EQ(test::texts(test::find(test.window(), "settings")).back(), "Version —");
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
  test.scan({{test::selectedItem("a")}, {}, {}});
  test::press(Qt::Key_Return);
  test::press(Qt::Key_Return);
  hasBegun.wait();
  test.window().close();
  isClosed.count_down();
  isOver.wait();
  EXPECT_TRUE(isAsked);
}

TEST(CommandLine, RefusesWhatItDoesNotKnow) {
  EXPECT_EQ(ui::commandline::rejection({"broomtide"}), std::nullopt);
  EXPECT_EQ(ui::commandline::rejection({"broomtide", "/home"}), 2);
}

// Does something with the dialog as soon as it is open.
std::optional<std::string> pick(ScanMode mode, const std::string& startingAt,
                                const std::function<void(QFileDialog&)>& use) {
  QTimer::singleShot(0, QCoreApplication::instance(), [&use] {
    use(*qobject_cast<QFileDialog*>(QApplication::activeModalWidget()));
  });
  return ui::FolderDialog().pickFolder(FolderChoice::request(mode, startingAt));
}

TEST(FolderDialog, SpeaksTheLanguageAndShowsNamesThatDeceiveForWhatTheyAre) {
  const test::SpokenLanguage pseudo({"pseudo"});
  const test::TemporaryTree tree;
  for (const ScanMode mode : {ScanMode::project, ScanMode::downloads, ScanMode::caches}) {
    const auto folder = pick(mode, tree.root(), [](QFileDialog& dialog) {
      for (const QString& text :
           {dialog.windowTitle(), dialog.labelText(QFileDialog::Accept),
            dialog.labelText(QFileDialog::Reject), test::find<QLabel>(dialog, "message").text()})
        EXPECT_TRUE(text.startsWith(u'⟦')) << text.toStdString();
      for (const char* name : {"listView", "treeView"}) {
        const auto* delegate = qobject_cast<QStyledItemDelegate*>(
            test::find<QAbstractItemView>(dialog, name).itemDelegate());
        EXPECT_EQ(delegate->displayText("photo\u202egpj\n", QLocale()), "photo\\u202egpj\\n");
      }
      dialog.reject();
    });
    EXPECT_EQ(folder, std::nullopt);
  }
}

// Sets where programs keep their settings.
class ConfigHome {
 public:
  explicit ConfigHome(const std::string& folder) { qputenv("XDG_CONFIG_HOME", folder.c_str()); }
  ~ConfigHome() { qunsetenv("XDG_CONFIG_HOME"); }
};

TEST(FolderDialog, GivesTheChosenFolderAndSharesNothingWithOtherPrograms) {
  const test::TemporaryTree tree;
  const std::string chosen = tree.folder("chosen");
  const std::string theirs = "[FileDialog]\nshortcuts=file:///theirs\nlastVisited=file:///theirs\n";
  tree.file("config/QtProject.conf", theirs);
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                     QString::fromStdString(tree.path("config")));
  const auto folder = pick(ScanMode::downloads, tree.root(), [](QFileDialog& dialog) {
    for (const QUrl& url : dialog.sidebarUrls()) EXPECT_NE(url, QUrl("file:///theirs"));
    dialog.selectFile("chosen");
    QMetaObject::invokeMethod(&dialog, "accept");
  });
  EXPECT_EQ(folder, chosen);
  QFile file(QString::fromStdString(tree.path("config/QtProject.conf")));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(), theirs);
  EXPECT_EQ(QDir(QString::fromStdString(tree.path("config"))).count(), 3U);  // . and .. as well
}

TEST(FolderDialog, KnowsWhatTheDesktopCallsDownloads) {
  const test::TemporaryTree tree;
  const ConfigHome config(tree.root());
  tree.file("user-dirs.dirs", "XDG_DOWNLOAD_DIR=\"/data/Téléchargements/\"\n");
  EXPECT_EQ(ui::FolderDialog().desktopDownloads(), "/data/Téléchargements");
}

// Notes the keys that arrive.
class Target final : public QWidget {
 public:
  Target() { installEventFilter(&filter_); }

  // Returns whether the event was taken before.
  bool send(QEvent::Type type, Qt::Key key, quint64 moment) {
    QKeyEvent event(type, key, Qt::NoModifier);
    event.setTimestamp(moment);
    event.ignore();
    QCoreApplication::sendEvent(this, &event);
    return event.isAccepted();
  }

  std::vector<int> pressed;

 protected:
  void keyPressEvent(QKeyEvent* event) override { pressed.push_back(event->key()); }

 private:
  ui::keys::AutoRepeatFilter filter_;
};

TEST(AutoRepeatFilter, OnlyAPersonPressesAgain) {
  struct Row {
    Qt::Key key;
    quint64 pause;  // after the key was released, by the X server's clock
    bool arrives;
  };
  for (const auto& [key, pause, arrives] :
       {Row{Qt::Key_Return, 0, false}, Row{Qt::Key_Enter, 0, false}, Row{Qt::Key_Space, 0, false},
        Row{Qt::Key_Escape, 0, false}, Row{Qt::Key_Down, 0, true}, Row{Qt::Key_Return, 50, true}}) {
    Target target;
    target.send(QEvent::KeyPress, key, 1000);
    target.send(QEvent::KeyRelease, key, 1600);
    EXPECT_EQ(target.send(QEvent::ShortcutOverride, key, 1600 + pause), !arrives);
    target.send(QEvent::KeyPress, key, 1600 + pause);
    EXPECT_THAT(target.pressed, testing::SizeIs(arrives ? 2 : 1)) << key;
  }
}

// The part of a desktop that tells programs what people prefer.
class Desktop : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
 public:
  explicit Desktop(QDBusConnection bus) : bus_(std::move(bus)) {
    const bool isThere =
        bus_.registerObject("/org/freedesktop/portal/desktop", this,
                            QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) &&
        bus_.registerService("org.freedesktop.portal.Desktop");
    EXPECT_TRUE(isThere) << bus_.lastError().message().toStdString();
  }

  void prefer(uint wanted) {
    emit SettingChanged("org.freedesktop.appearance", "color-scheme",
                        QDBusVariant(QVariant::fromValue(wanted)));
  }

  uint scheme = 0;

 public slots:
  QDBusVariant Read(const QString& group, const QString& key) {
    EXPECT_EQ(group + " " + key, "org.freedesktop.appearance color-scheme");
    return QDBusVariant(QVariant::fromValue(QDBusVariant(QVariant::fromValue(scheme))));
  }

 signals:
  void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

 private:
  QDBusConnection bus_;
};

bool isDark() { return &ui::Theme::of(QApplication::palette()) == &ui::Theme::dark(); }

TEST(DesktopColours, FollowsWhatTheDesktopPrefers) {
  QProcess daemon;
  daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
  ASSERT_TRUE(daemon.waitForReadyRead());
  const QString address = QString::fromUtf8(daemon.readLine()).trimmed();
  {
    Desktop desktop(QDBusConnection::connectToBus(address, "desktop"));
    desktop.scheme = 1;
    ASSERT_FALSE(isDark());
    const ui::DesktopColours colours(QDBusConnection::connectToBus(address, "program"));
    test::TestWindow::runUntil(isDark);
    for (const uint wanted : {2U, 1U, 0U}) {  // 0: the desktop's palette, which is light here
      desktop.prefer(wanted);
      test::TestWindow::runUntil([&] { return isDark() == (wanted == 1); });
    }
  }
  for (const char* name : {"desktop", "program"}) QDBusConnection::disconnectFromBus(name);
  daemon.kill();
  daemon.waitForFinished();
}

TEST(QtMainThread, LetsEventsThroughAFlood) {
  // There is always something more to do until a timer, and an event after it, had their turn.
  std::atomic<bool> isOver = false;
  std::function<void()> more;
  ui::QtMainThread main;
  more = [&] {
    if (!isOver) main.post(more);
  };
  main.post([&] {
    more();
    QTimer::singleShot(0, [&] {
      QMetaObject::invokeMethod(
          &main, [&] { isOver = true; }, Qt::QueuedConnection);
    });
  });
  const std::jthread other([&] {
    while (!isOver) main.post([] {});
  });
  test::TestWindow::runUntil([&] { return isOver.load(); });
  EXPECT_TRUE(isOver);
}

}  // namespace
}  // namespace broomtide

#include "ShellTest.moc"
#include "moc_Person.cpp"
