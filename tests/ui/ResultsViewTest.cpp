#include "ui/results/ResultsView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include "support/TemporaryTree.h"
#include "ui/Candidates.h"
#include "ui/Person.h"
#include "ui/Readable.h"
#include "ui/TestWindow.h"
#include "ui/controls/Metric.h"
#include "ui/results/ResultsRoles.h"

namespace broomtide {
namespace {

using test::makeCandidate;
using test::resultOf;
using enum SafetyLevel;

class Results : public testing::Test {
 protected:
  void show(ScanResult result, ScanMode mode = ScanMode::project) {
    test.scan(std::move(result), mode);
    test::show(test.window());
    settle();
  }

  // What was asked for is on the screen.
  void settle() {
    bool isOver = false;
    QTimer::singleShot(std::chrono::milliseconds(20), [&] { isOver = true; });
    test::TestWindow::runUntil([&] { return isOver; });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  template <typename Control>
  Control* find(const char* name) {
    return test::screen(test.window()).findChild<Control*>(name);
  }

  void click(const char* name) {
    test::click(test::find<QPushButton>(test.window(), name));
    settle();
  }

  QTableView* list() { return find<QTableView>("candidates"); }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    test::press(key, modifiers);
    settle();
  }

  QString textOf(const char* label) { return find<QLabel>(label)->text(); }

  // The names of the rows that are shown.
  QStringList rows() {
    QStringList names;
    const QAbstractItemModel& model = *list()->model();
    for (int row = 0; row < model.rowCount(); ++row) names << model.index(row, 0).data().toString();
    return names;
  }

  test::TestWindow test;
};

TEST_F(Results, ShowTotalsAndFollowTheSelection) {
  ScanResult result = resultOf({makeCandidate("web/.next", 2'000'000'000),
                                makeCandidate("api/target", 500'000'000, usuallySafe),
                                makeCandidate("old", 1'500, reviewFirst)});
  result.candidates[1].isSelected = true;
  result.projects.resize(2);
  show(result);
  const auto metrics = [this] {
    QStringList texts;
    for (const char* name : {"found", "selected", "scanned", "projects", "matches"}) {
      const auto* metric = find<ui::Metric>(name);
      texts << metric->label() + "=" + metric->value();
    }
    return texts;
  };
  EXPECT_EQ(metrics(), QStringList({"Found=2.5 GB", "Selected=500 MB", "Scanned=15767",
                                    "Projects=2", "Matches=3"}));
  EXPECT_EQ(textOf("selection"), "1 selected · 500 MB");
  EXPECT_EQ(textOf("root"), "/home/ada/src");

  click("selectSafe");
  EXPECT_EQ(metrics()[1], "Selected=2 GB");
  click("unselectAll");
  EXPECT_EQ(textOf("selection"), "0 selected · Zero KB");
  EXPECT_FALSE(find<QPushButton>("moveSelected")->isEnabled());
  press(Qt::Key_Return);
  EXPECT_EQ(test.model().route(), Route::results);

  test.window().setAttribute(Qt::WA_KeyboardFocusChange, false);
  press(Qt::Key_Space);  // the list has the focus, on its first item, and shows so from now on
  EXPECT_TRUE(test.window().testAttribute(Qt::WA_KeyboardFocusChange));
  EXPECT_EQ(textOf("selection"), "1 selected · 2 GB");
  EXPECT_TRUE(find<QPushButton>("moveSelected")->isEnabled());
  press(Qt::Key_Return);
  EXPECT_EQ(test.model().route(), Route::confirmation);
}

TEST_F(Results, SayWhyThereIsNothing) {
  for (const auto& [mode, why] : std::vector<std::pair<ScanMode, QString>>{
           {ScanMode::caches,
            "The known developer cache locations under this folder are already clean."},
           {ScanMode::project,
            "Broomtide scanned 15767 items but did not find a supported disposable artifact in "
            "this folder."},
       }) {
    show({}, mode);
    EXPECT_EQ(textOf("emptyDescription"), why);
    const auto* description = find<QLabel>("emptyDescription");
    EXPECT_GE(description->height(), description->heightForWidth(description->width()));
    EXPECT_EQ(find<QWidget>("tabs"), nullptr);
    EXPECT_TRUE(find<QPushButton>("home")->hasFocus());
  }
}

TEST_F(Results, AreSortedByReturnInTheOpenListAndStartAsLargestEachTime) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    ScanCandidate selected = makeCandidate("b", 9);
    selected.isSelected = true;
    show(resultOf({selected, makeCandidate("a", 1)}));
    EXPECT_EQ(rows(), QStringList({"Safe to Clean", "b", "a"}));
    auto* sort = find<QComboBox>("sort");
    test::click(*sort);
    settle();
    QTest::keyClick(sort->view(), Qt::Key_Down);
    QTest::keyClick(sort->view(), key);
    settle();
    EXPECT_EQ(test.model().route(), Route::results);  // nothing else happened
    EXPECT_FALSE(sort->view()->isVisible());
    EXPECT_EQ(sort->currentText(), "Name");
    EXPECT_EQ(rows(), QStringList({"Safe to Clean", "a", "b"}));
  }
}

TEST_F(Results, ScrollToWhatIsOpenedAtTheLowerEdge) {
  std::vector<ScanCandidate> many;
  for (int number = 10; number < 60; ++number)
    many.push_back(makeCandidate(std::to_string(number), number));
  show(resultOf(std::move(many)));
  press(Qt::Key_End);
  press(Qt::Key_Right);
  const int row = list()->currentIndex().row();
  const QRect opened = list()->visualRect(list()->model()->index(row + 1, 0));
  EXPECT_TRUE(list()->viewport()->rect().contains(opened));
  EXPECT_TRUE(list()->viewport()->rect().contains(list()->visualRect(list()->currentIndex())));
}

TEST_F(Results, OpenDetailsWithoutWhatIsNotKnown) {
  ScanCandidate full = makeCandidate("web/node_modules", 9);
  full.projectRoot = "/home/ada/src/web";
  full.evidence = {"package.json is here", "Git ignores this folder"};
  full.regenerationCommand = "npm ci";
  show(resultOf({full, makeCandidate("bare", 1)}));
  press(Qt::Key_Right);
  EXPECT_EQ(textOf("explanation"), "Comes back with the next build.");
  EXPECT_EQ(textOf("project"), "Project: web");
  EXPECT_EQ(list()->findChildren<QLabel*>("evidence").size(), 2);
  EXPECT_EQ(textOf("command"), "npm ci");
  EXPECT_TRUE(find<QLabel>("command")->textInteractionFlags() & Qt::TextSelectableByKeyboard);
  QApplication::clipboard()->clear();
  click("copyCommand");
  EXPECT_EQ(QApplication::clipboard()->text(), "npm ci");

  list()->setFocus();
  press(Qt::Key_Left);
  EXPECT_EQ(find<QLabel>("explanation"), nullptr);
  press(Qt::Key_Down);
  press(Qt::Key_Right);
  EXPECT_NE(find<QLabel>("explanation"), nullptr);
  EXPECT_EQ(find<QLabel>("project"), nullptr);
  EXPECT_EQ(find<QLabel>("command"), nullptr);
}

TEST_F(Results, ClicksTickBoxesAndOpenRows) {
  show(resultOf({makeCandidate("a")}));
  const QRect row = list()->visualRect(list()->model()->index(1, 0));
  const auto clickAt = [&](int x) {
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, QPoint(x, row.center().y()));
    settle();
  };
  clickAt(20);
  EXPECT_EQ(test.model().totals().selectedCount, 1U);
  clickAt(20);
  EXPECT_EQ(test.model().totals().selectedCount, 0U);
  clickAt(row.width() / 2);
  EXPECT_NE(find<QWidget>("details"), nullptr);
  clickAt(row.width() / 2);
  EXPECT_EQ(find<QWidget>("details"), nullptr);
  EXPECT_EQ(test.model().totals().selectedCount, 0U);
}

TEST_F(Results, FilterFromTheKeyboardAndKeepTheSelection) {
  ScanResult result =
      resultOf({makeCandidate("web/node_modules", 9), makeCandidate("api/target", 5)});
  result.candidates[0].isSelected = true;
  result.candidates[1].isSelected = true;
  show(result);
  press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(QApplication::focusWidget(), "target");
  settle();
  EXPECT_EQ(rows(), QStringList({"Safe to Clean", "target"}));
  EXPECT_EQ(textOf("selection"), "2 selected · 14 bytes · 1 of them hidden by the filter");
  press(Qt::Key_Return);  // to the list, not to the confirmation
  EXPECT_EQ(test.model().route(), Route::results);
  EXPECT_TRUE(list()->hasFocus());

  press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(QApplication::focusWidget(), "zzz");
  settle();
  EXPECT_TRUE(find<QWidget>("noMatch")->isVisible());
  press(Qt::Key_Escape);
  EXPECT_EQ(rows(), QStringList({"Safe to Clean", "node_modules", "target"}));
  EXPECT_EQ(textOf("selection"), "2 selected · 14 bytes");
  EXPECT_EQ(test.model().totals().selectedCount, 2U);
}

TEST_F(Results, KeepPlaceAndDetailsWhenSortedOrFiltered) {
  show(resultOf({makeCandidate("a", 1), makeCandidate("b", 2), makeCandidate("c", 3)}));
  list()->setFocus();
  press(Qt::Key_Down);
  press(Qt::Key_Right);
  ASSERT_EQ(list()->currentIndex().data().toString(), "b");
  find<QComboBox>("sort")->setCurrentText("Name");
  EXPECT_EQ(list()->currentIndex().data().toString(), "b");
  find<QLineEdit>("filter")->setText("b");
  EXPECT_EQ(list()->currentIndex().data().toString(), "b");
  find<QLineEdit>("filter")->clear();
  settle();
  EXPECT_EQ(list()->currentIndex().data().toString(), "b");
  EXPECT_EQ(list()->findChildren<QWidget*>("details").size(), 1);
  EXPECT_EQ(rows().size(), 5);
}

TEST_F(Results, HaveTheirHeightWhereDetailsWereBefore) {
  show(resultOf({makeCandidate("a", 3), makeCandidate("cb", 2), makeCandidate("cc", 1),
                 makeCandidate("c", 0, reviewFirst)}));
  const int usual = list()->rowHeight(1);
  list()->model()->setData(list()->model()->index(1, 0), true, ui::OpenRole);
  EXPECT_NE(list()->rowHeight(2), usual);
  for (const char* filter : {"c", ""}) {
    find<QLineEdit>("filter")->setText(filter);
    for (int row = 0; row < list()->model()->rowCount(); ++row) {
      const auto kind = static_cast<ui::ResultsRowKind>(
          list()->model()->index(row, 0).data(ui::KindRole).toInt());
      if (kind != ui::ResultsRowKind::candidate) continue;
      EXPECT_EQ(list()->rowHeight(row), usual) << row;
    }
  }
}

class UrlCatcher : public QObject {
  Q_OBJECT
 public slots:
  void open(const QUrl& url) { opened << url; }

 public:
  QList<QUrl> opened;
};

TEST_F(Results, OfferAMenuForTheCandidateItWasOpenedFor) {
  const test::TemporaryTree tree;
  ScanCandidate item = makeCandidate("web/we\xff%ird", 9);
  item.url = tree.folder("w\xc3\xa9%b/we\xff%ird");
  item.regenerationCommand = "make";
  show(resultOf({item, makeCandidate("b", 1)}));
  const QString path = QString::fromStdString("$'" + tree.path("w\xc3\xa9%b") + "/we\\xff%ird'");
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), path);
  const auto choose = [&](const QString& text) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(list(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    // The rows move under the open menu.
    find<QComboBox>("sort")->setCurrentText(test.model().candidates()[0].isSelected ? "Largest"
                                                                                    : "Oldest");
    for (QAction* action : menu->actions()) {
      if (action->text() == text) action->trigger();
    }
    menu->close();
    settle();
  };
  UrlCatcher catcher;
  QDesktopServices::setUrlHandler("file", &catcher, "open");
  choose("Select");
  EXPECT_TRUE(test.model().candidates()[0].isSelected);
  choose("Deselect");
  EXPECT_FALSE(test.model().candidates()[0].isSelected);
  choose("Copy Command");
  EXPECT_EQ(QApplication::clipboard()->text(), "make");
  choose("Copy Path");
  EXPECT_EQ(QApplication::clipboard()->text(), path);
  choose("Open Containing Folder");
  ASSERT_EQ(catcher.opened.size(), 1);
  EXPECT_EQ(catcher.opened[0].toEncoded(),
            QByteArray::fromStdString("file://" + tree.path("w%C3%A9%25b")));

  // What has taken the folder's place by now is not opened.
  tree.run("rm -r w*b && echo echo >w\xc3\xa9%b");
  choose("Open Containing Folder");
  QDesktopServices::unsetUrlHandler("file");
  EXPECT_EQ(catcher.opened.size(), 1);
}

TEST_F(Results, PointOutNamesThatAreNotWhatTheySeem) {
  show(resultOf({makeCandidate("photo\u202egpj/build", 2), makeCandidate("photo/build", 1)}));
  EXPECT_THAT(test::drawnTexts(*list()->viewport()),
              testing::Contains("Unusual characters").Times(1));
  const auto read = [this](int row) {
    return list()->model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
  };
  EXPECT_TRUE(read(1).startsWith("build, Unusual characters, Build Output"));
  EXPECT_TRUE(read(2).startsWith("build, Build Output"));
}

TEST_F(Results, ReadNamesFromRightToLeftWithoutMarks) {
  ScanCandidate item = makeCandidate("אבג/דהו");
  item.evidence = {"Detected by אבג/דהו"};
  item.projectRoot = "/אבג";
  show(resultOf({item}, 1));
  const QModelIndex row = list()->model()->index(1, 0);
  EXPECT_NE(row.data(ui::PathRole).toString(), "אבג/דהו");
  list()->model()->setData(row, true, ui::OpenRole);
  settle();
  for (int number = 0; number < list()->model()->rowCount(); ++number) {
    const QModelIndex index = list()->model()->index(number, 0);
    for (const int role : {Qt::AccessibleTextRole, Qt::AccessibleDescriptionRole}) {
      EXPECT_FALSE(index.data(role).toString().contains(QChar(0x200E))) << number;
    }
  }
  const auto labels =
      test::screen(test.window()).findChild<QWidget*>("details")->findChildren<QLabel*>();
  EXPECT_FALSE(labels.isEmpty());
  for (const QLabel* label : labels) EXPECT_FALSE(label->text().contains(QChar(0x200E)));
}

TEST_F(Results, ShowProjectsLargestFirst) {
  ScanCandidate small = makeCandidate("web/a", 1'000);
  small.projectRoot = "/home/ada/src/web";
  small.projectKinds = {ProjectKind::javascript, ProjectKind::dotnet};
  ScanCandidate large = makeCandidate("api/b", 5'000);
  large.projectRoot = "/home/ada/src/api";
  large.modificationDate =
      std::chrono::sys_days{std::chrono::year(2025) / 3 / 1} + std::chrono::hours(12);
  show(resultOf({small, large, makeCandidate("outside", 9'000)}, 2));
  click("By Project");
  const auto* projects = find<QListView>("projectList");
  ASSERT_TRUE(projects->isVisible());
  EXPECT_FALSE(list()->isVisible());
  QStringList texts;
  for (int row = 0; row < projects->model()->rowCount(); ++row)
    texts << projects->model()->index(row, 0).data().toString();
  EXPECT_EQ(texts,
            QStringList({"api · /home/ada/src/api · newest disposable artifact Mar 1, 2025 · "
                         "1 items · 5 KB",
                         "web · /home/ada/src/web · .NET, JavaScript / TypeScript · newest "
                         "disposable artifact unknown · 1 items · 1 KB"}));
  click("Cleanup Items");
  EXPECT_TRUE(list()->isVisible());
}

TEST_F(Results, RescanTheSameFolderWithTheAccessItHas) {
  show(resultOf({makeCandidate("a")}), ScanMode::downloads);
  test.script.scans.push_back([](const auto&, const auto&) { return ScanResult{}; });
  click("rescan");
  test.runUntil(Route::results);
  EXPECT_EQ(test.script.scanned.back(),
            std::pair(std::string("/home/ada/src"), ScanMode::downloads));
  EXPECT_EQ(test.access.record.size(), 1U);
  click("home");
  EXPECT_EQ(test.model().route(), Route::welcome);
}

}  // namespace
}  // namespace broomtide

#include "ResultsViewTest.moc"
