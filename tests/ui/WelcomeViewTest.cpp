#include <QAccessible>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "support/TemporaryTree.h"
#include "ui/Person.h"
#include "ui/screens/ScanModeCard.h"

namespace broomtide {
namespace {

using testing::ElementsAre;
using testing::SizeIs;
using ui::ScanModeCard;

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

TEST_F(Welcome, EachCardShowsAndSaysWhatItScans) {
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
    ScanModeCard& shown = card(row.name);
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&shown);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Scan %1").arg(row.title));
    EXPECT_EQ(spoken->text(QAccessible::Description), row.detail);
    for (const char* icon : {row.icon, "trash"}) {
      ScanModeCard other(icon, row.title, row.detail, shown.parentWidget());
      other.resize(shown.size());
      EXPECT_EQ(other.grab().toImage() == shown.grab().toImage(), icon == row.icon) << row.title;
    }
  }
}

// The pointer, and the keys after so many tabs from the start of the screen.
TEST_F(Welcome, CardsAskForTheFolder) {
  tree.folder("home/Downloads");
  struct Row {
    const char* name;
    int tabs;
    ScanMode mode;
    std::optional<std::string> startingAt;
  };
  for (const Row& row : std::vector<Row>{
           {"projectCard", 0, ScanMode::project, std::nullopt},
           {"cachesCard", 1, ScanMode::caches, tree.path("home")},
           {"downloadsCard", 2, ScanMode::downloads, tree.path("home/Downloads")},
       }) {
    for (const Qt::Key key : {Qt::Key_unknown, Qt::Key_Space, Qt::Key_Return}) {
      test.model().setRoute(Route::welcome);  // anew, with the focus at its start
      test.picker.requests.clear();
      if (key == Qt::Key_unknown) {
        test::click(card(row.name));
      } else {
        for (int tab = 0; tab < row.tabs; ++tab) test::press(Qt::Key_Tab);
        test::press(key);
      }
      ASSERT_THAT(test.picker.requests, SizeIs(1)) << row.name << key;
      EXPECT_EQ(test.picker.requests.front().mode, row.mode);
      EXPECT_EQ(test.picker.requests.front().startingAt, row.startingAt);
      // Nothing was chosen, and nothing happens.
      EXPECT_EQ(test.model().route(), Route::welcome);
      EXPECT_THAT(test.script.scanned, ElementsAre());
    }
  }
}

TEST_F(Welcome, ThePointerLightsACardUp) {
  test::pointAt(card("cachesCard"));
  EXPECT_TRUE(card("cachesCard").isHovered());
  EXPECT_FALSE(card("projectCard").isHovered());
  test::pointAt(card("projectCard"));
  EXPECT_FALSE(card("cachesCard").isHovered());
  EXPECT_TRUE(card("projectCard").isHovered());
  test::pointAt(test::find(screen(), "title"));
  EXPECT_FALSE(card("projectCard").isHovered());
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
