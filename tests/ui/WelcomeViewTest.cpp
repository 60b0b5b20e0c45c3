#include <QAccessible>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPainter>
#include <QUrl>

#include "support/TemporaryTree.h"
#include "ui/Person.h"
#include "ui/look/Symbols.h"
#include "ui/look/Theme.h"
#include "ui/screens/ScanModeCard.h"
#include "ui/shell/FolderDialog.h"

namespace broomtide {
namespace {

using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::SizeIs;
using ui::ScanModeCard;

// Whether `part` is to be seen somewhere in `whole`.
bool contains(const QImage& whole, const QImage& part) {
  for (int y = 0; y + part.height() <= whole.height(); ++y) {
    for (int x = 0; x + part.width() <= whole.width(); ++x) {
      const auto isHere = [&] {
        for (int row = 0; row < part.height(); ++row) {
          for (int column = 0; column < part.width(); ++column) {
            if (whole.pixel(x + column, y + row) != part.pixel(column, row)) return false;
          }
        }
        return true;
      };
      if (isHere()) return true;
    }
  }
  return false;
}

class Welcome : public testing::Test {
 protected:
  Welcome() { test::show(test.window()); }

  QWidget& screen() { return test::screen(test.window()); }
  ScanModeCard& card(const char* name) { return test::find<ScanModeCard>(screen(), name); }

  test::TemporaryTree tree;
  test::TestWindow test{tree.folder("home")};
};

TEST_F(Welcome, SaysWhatTheApplicationDoesAndPromises) {
  EXPECT_THAT(test::texts(screen()),
              ElementsAre("Broomtide", "Free up space without breaking your projects.",
                          "Local only", "No cloud upload", "Trash only", "You review first"));
}

TEST_F(Welcome, EachCardSaysWhatItScans) {
  struct Row {
    const char* name;
    const char* title;
    const char* detail;
    const char* icon;
  };
  for (const Row& row : {
           Row{"projectCard", "Project Folder",
               "Find build outputs, caches, and dependencies inside your repositories.",
               "shippingbox.fill"},
           Row{"cachesCard", "Developer Caches",
               "Check Xcode DerivedData plus global npm, pip, Homebrew, Gradle, and Cargo caches.",
               "internaldrive.fill"},
           Row{"downloadsCard", "Downloads",
               "Surface old installers, archives, and screenshots that piled up.",
               "arrow.down.circle.fill"},
       }) {
    ScanModeCard& card = this->card(row.name);
    EXPECT_EQ(card.text(), row.title);
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&card);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Scan %1").arg(row.title));
    EXPECT_EQ(spoken->text(QAccessible::Description), row.detail);
    EXPECT_EQ(spoken->role(), QAccessible::Button);

    const ui::Theme& theme = ui::Theme::of(card.palette());
    QPixmap icon(34, 34);
    icon.fill(theme.card);
    QPainter painter(&icon);
    ui::symbols::paint(painter, row.icon, theme.accent, icon.rect());
    painter.end();
    EXPECT_TRUE(contains(card.grab().toImage(), icon.toImage())) << row.icon;
  }
}

TEST(DesktopFolders, DownloadsIsWhatTheDesktopCallsSo) {
  test::TemporaryTree tree;
  qputenv("XDG_CONFIG_HOME", tree.root().c_str());
  struct Row {
    std::string settings;
    std::string folder;
  };
  const std::string home = qgetenv("HOME").toStdString();
  for (const Row& row : std::vector<Row>{
           {"XDG_DOWNLOAD_DIR=\"/data/Téléchargements\"\n", "/data/Téléchargements"},
           {"XDG_DOWNLOAD_DIR=\"$HOME/Geladenes/\"\n", home + "/Geladenes"},
           {"XDG_DOWNLOAD_DIR=\"$HOME/\"\n", home},
       }) {
    tree.file("user-dirs.dirs", row.settings);
    EXPECT_EQ(ui::FolderDialog().desktopDownloads(), row.folder);
  }
  qunsetenv("XDG_CONFIG_HOME");
}

TEST_F(Welcome, CardsAskForTheFolder) {
  tree.folder("home/Downloads");
  struct Row {
    const char* name;
    int tabs;  // from the start of the screen
    ScanMode mode;
    std::optional<std::string> startingAt;
    std::string title, prompt;
  };
  const std::vector<Row> rows{
      {"projectCard", 0, ScanMode::project, std::nullopt, "Choose a project folder", "Scan Folder"},
      {"cachesCard", 1, ScanMode::caches, tree.path("home"), "Choose your home folder",
       "Scan Caches"},
      {"downloadsCard", 2, ScanMode::downloads, tree.path("home/Downloads"),
       "Choose your Downloads folder", "Scan Folder"},
  };
  const std::vector<std::optional<Qt::Key>> ways{std::nullopt, Qt::Key_Space, Qt::Key_Return};
  for (const std::optional<Qt::Key> key : ways) {
    for (const Row& row : rows) {
      test.model().setRoute(Route::welcome);  // anew, with the focus at its start
      test.picker.requests.clear();
      if (key) {
        for (int tab = 0; tab < row.tabs; ++tab) test::press(Qt::Key_Tab);
        test::press(*key);
      } else {
        test::click(card(row.name));
      }
      ASSERT_THAT(test.picker.requests, SizeIs(1)) << row.name << key.value_or(Qt::Key_unknown);
      const FolderRequest& request = test.picker.requests.front();
      EXPECT_EQ(request.mode, row.mode);
      EXPECT_EQ(request.startingAt, row.startingAt);
      EXPECT_EQ(request.title, row.title);
      EXPECT_EQ(request.prompt, row.prompt);
      EXPECT_EQ(request.message,
                row.mode == ScanMode::caches
                    ? "Keep your home folder selected and press Scan Caches. Broomtide checks "
                      "well-known developer cache locations under it. Nothing is uploaded."
                    : "Broomtide scans only the folder you choose. Nothing is uploaded.");
      // Nothing was chosen, and nothing happens.
      EXPECT_EQ(test.model().route(), Route::welcome);
      EXPECT_EQ(test.model().errorMessage(), std::nullopt);
      EXPECT_THAT(test.script.scanned, ElementsAre());
    }
  }
}

TEST_F(Welcome, PickersStartNowhereInParticularWithoutAPlace) {
  test::click(card("downloadsCard"));
  EXPECT_EQ(test.picker.requests.at(0).startingAt, std::nullopt);
  test::TestWindow homeless(std::nullopt);
  test::show(homeless.window());
  test::click(test::find(homeless.window(), "cachesCard"));
  EXPECT_EQ(homeless.picker.requests.at(0).startingAt, std::nullopt);
}

TEST_F(Welcome, AChosenFolderIsScanned) {
  test.picker.answer = "/home/ada/src";
  test.script.scans.emplace_back([](const auto&, const auto&) { return ScanResult(); });
  test::click(card("projectCard"));
  EXPECT_EQ(test::screen(test.window()).objectName(), "scanning");
  test.runUntil(Route::results);
  EXPECT_THAT(test.script.scanned, ElementsAre(std::pair("/home/ada/src", ScanMode::project)));
}

TEST_F(Welcome, ThePointerLightsACardUpAndDoesNoMore) {
  const QWidget* focused = QApplication::focusWidget();
  test::pointAt(card("cachesCard"));
  EXPECT_TRUE(card("cachesCard").isHovered());
  EXPECT_FALSE(card("projectCard").isHovered());
  test::pointAt(card("projectCard"));
  EXPECT_FALSE(card("cachesCard").isHovered());
  EXPECT_TRUE(card("projectCard").isHovered());
  test::pointAt(test::find(screen(), "title"));
  EXPECT_FALSE(card("projectCard").isHovered());
  EXPECT_THAT(test.picker.requests, SizeIs(0));
  EXPECT_EQ(test.model().route(), Route::welcome);
  EXPECT_EQ(QApplication::focusWidget(), focused);
}

TEST_F(Welcome, TakesKeysAsSoonAsTheWindowIsThere) {
  test::press(Qt::Key_Space);
  ASSERT_THAT(test.picker.requests, SizeIs(1));
  EXPECT_EQ(test.picker.requests.front().mode, ScanMode::project);
}

TEST_F(Welcome, LeadsToTheHistory) {
  EXPECT_EQ(test::find<QAbstractButton>(screen(), "viewHistory").text(), "View Cleanup History");
  test::click(test::find(screen(), "viewHistory"));
  test.runUntil(Route::history);
  EXPECT_EQ(screen().objectName(), "history");
}

class Dropping : public Welcome {
 protected:
  // Drops it on a card, and says whether it was taken.
  bool drop(const QByteArray& urls) {
    QMimeData data;
    data.setData("text/uri-list", urls);
    QWidget& target = card("projectCard");
    const QPoint place = target.rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted();
  }

  QByteArray url(const std::string& path) {
    return "file://" + QByteArray::fromStdString(path).toPercentEncoding("/") + "\r\n";
  }
};

TEST_F(Dropping, AFolderIsScannedAsProjects) {
  for (const char* name : {"plain", "with space", "100%", "%41", "a#b?c;d", "ä", "a\u0308",
                           "not \xff UTF-8", "new\nline", "back\\slash"}) {
    const std::string folder = tree.folder(name);
    test.script.scanned.clear();
    test.script.scans.emplace_back([](const auto&, const auto&) { return ScanResult(); });
    ASSERT_TRUE(drop(url(folder))) << name;
    test.runUntil(Route::results);
    EXPECT_THAT(test.script.scanned, ElementsAre(std::pair(folder, ScanMode::project)));
    test.model().returnHome();
  }
}

TEST_F(Dropping, NothingElseIsTaken) {
  const QByteArray folder = url(tree.folder("one"));
  const QByteArray path = QByteArray::fromStdString(tree.path("one"));
  for (const QByteArray& urls : {
           url(tree.file("file")),
           url(tree.path("missing")),
           folder + url(tree.folder("two")),
           "https://broomtide.example" + path,
           "sftp://host" + path,
           "file://elsewhere.example" + path,
           "file://" + path + "%00hidden",
           "file://" + path + "#more",
           "file://" + path + "?more",
           "file:" + path.mid(1),
           QByteArray("one"),
           QByteArray(),
       }) {
    EXPECT_FALSE(drop(urls)) << urls.toStdString();
    EXPECT_EQ(test.model().route(), Route::welcome);
  }
}

}  // namespace
}  // namespace broomtide
