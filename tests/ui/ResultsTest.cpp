// The results screen and its model.

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QTableView>

#include "support/TemporaryTree.h"
#include "ui/Person.h"
#include "ui/results/ResultsModel.h"

namespace broomtide {
namespace {

using test::makeCandidate;
using test::resultOf;
using test::selectedItem;
using ui::ResultsModel;
using ui::ResultsRowKind;
using enum SafetyLevel;

// What the list shows, one text for each row.
QStringList shown(const QAbstractItemModel& model) {
  QStringList rows;
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex index = model.index(row, 0);
    const auto kind = static_cast<ResultsRowKind>(index.data(ui::KindRole).toInt());
    const bool isSelected = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    rows << (kind == ResultsRowKind::details ? "details" : index.data().toString());
    if (isSelected) rows.back() += " *";
  }
  return rows;
}

TEST(ResultsModel, SaysAllThatARowShows) {
  test::TestWindow test;
  ScanCandidate file = makeCandidate("old/set\nup.dmg", 1'500'000, usuallySafe);
  file.gitStatus = GitItemStatus::unavailable;
  file.confidence = DetectionConfidence::medium;
  test.scan(resultOf({makeCandidate("web/.next", 1'200'000'000), file}));
  const ResultsModel model(test.model());
  for (const auto& [row, role, text] : std::vector<std::tuple<int, int, QString>>{
           {1, Qt::AccessibleTextRole,
            ".next, Build Output, Safe to Clean, 1.2 GB, not selected, High confidence, Ignored by "
            "Git, Unknown date, web/.next, details hidden"},
           {1, Qt::AccessibleDescriptionRole, "Select .next"},
           {3, Qt::DisplayRole, "set\\nup.dmg"},
           {3, ui::NoteRole,
            "Build Output · Medium confidence · Git status unavailable · Unknown date"},
           {3, ui::BadgeRole, "Usually Safe"},
           {3, ui::WarningRole, "Unusual characters"},
       })
    EXPECT_EQ(model.index(row, 0).data(role).toString(), text);
}

TEST(ResultsModel, KeepsWhatIsOpenAndTickedWhileItIsSortedAndFiltered) {
  test::TestWindow test;
  ScanCandidate oldest = makeCandidate("x/item10", 3, reviewFirst);
  oldest.modificationDate = Date(std::chrono::seconds(1));
  oldest.category = "Compiler Output";
  test.scan(resultOf({makeCandidate("x/Item2", 1, reviewFirst), makeCandidate("api/Größe", 5),
                      oldest, makeCandidate("api/a", 9)},
                     11));
  ResultsModel model(test.model());
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  const QString issues = "11 item(s) could not be read and were skipped.";
  const auto set = [&](int row, int role, const QVariant& value) {
    EXPECT_TRUE(model.setData(model.index(row, 0), value, role)) << row;
  };
  EXPECT_EQ(shown(model), QStringList({"Safe to Clean", "a", "Größe", "Review First", "item10",
                                       "Item2", issues}));
  set(5, ui::ExpandedRole, true);
  for (int times = 0; times < 2; ++times) {
    set(2, Qt::CheckStateRole, Qt::Checked);
    set(5, ui::ExpandedRole, true);
  }
  EXPECT_FALSE(model.setData(model.index(0, 0), true, ui::ExpandedRole));
  model.setSortOrder(SortOrder::name);
  EXPECT_EQ(shown(model), QStringList({"Safe to Clean", "a", "Größe *", "Review First", "Item2",
                                       "details", "item10", issues}));
  model.setSortOrder(SortOrder::date);
  EXPECT_EQ(shown(model), QStringList({"Safe to Clean", "Größe *", "a", "Review First", "item10",
                                       "Item2", "details", issues}));
  for (const auto& [filter, rows] : std::vector<std::pair<QString, QStringList>>{
           {"ITEM2", {"Review First", "Item2", "details"}},
           {"  x   ITEM10 ", {"Review First", "item10"}},
           {"compiler", {"Review First", "item10"}},
           {"größe", {"Safe to Clean", "Größe *"}},
           {"api item10", {}},
       }) {
    model.setFilter(filter);
    EXPECT_EQ(shown(model), rows + QStringList(issues)) << filter.toStdString();
    EXPECT_EQ(model.hiddenSelectedCount(1), rows.contains("Größe *") ? 0U : 1U);
  }
  set(0, ui::ExpandedRole, true);
  EXPECT_EQ(shown(model).size(), 12);
  EXPECT_EQ(shown(model).back(), "And 1 more…");
  test.scan(resultOf({makeCandidate("b")}, 10));  // starts from the beginning
  EXPECT_EQ(shown(model).size(), 3);
  set(2, ui::ExpandedRole, true);
  EXPECT_EQ(shown(model).back(), "/home/ada/src/9");
}

class Results : public test::AtTheWindow {
 protected:
  void show(ScanResult result, ScanMode mode = ScanMode::project) {
    test.scan(std::move(result), mode);
    settle();
  }

  // What was asked for is on the screen, what is on its way within a frame too.
  void settle() {
    const auto isShown = [this] {
      return find<QLabel>("selection")
          .text()
          .startsWith(QString::number(test.model().totals().selectedCount));
    };
    if (test.model().route() == Route::results) test.runUntil(isShown);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    test::press(key, modifiers);
    settle();
  }

  void click(const char* name) {
    test::click(find<QPushButton>(name));
    settle();
  }

  QTableView& list() { return find<QTableView>("candidates"); }
  QModelIndex row(int number) { return list().model()->index(number, 0); }
  QStringList rows() { return shown(*list().model()); }
  QWidget* details() { return list().findChild<QWidget*>("details"); }
};

TEST_F(Results, ShowTotalsAndFollowTheSelection) {
  ScanResult result = resultOf({makeCandidate("web/.next", 2'000'000'000),
                                makeCandidate("api/target", 500'000'000, usuallySafe)});
  result.candidates[1].isSelected = true;
  result.projects.resize(2);
  show(result);
  const std::vector<std::string> texts = test::texts(screen());
  EXPECT_THAT(texts, testing::IsSupersetOf({"/home/ada/src", "2.5 GB", "500 MB", "15767", "2",
                                            "1 selected · 500 MB"}));
  click("selectSafe");
  EXPECT_EQ(textOf("selection"), "1 selected · 2 GB");
  click("unselectAll");
  EXPECT_FALSE(find("moveSelected").isEnabled());
  press(Qt::Key_Return);
  EXPECT_EQ(test.model().route(), Route::results);
  test.window().setAttribute(Qt::WA_KeyboardFocusChange, false);
  press(Qt::Key_Space);  // the list has the focus, on its first item, and shows so from now on
  EXPECT_TRUE(test.window().testAttribute(Qt::WA_KeyboardFocusChange));
  EXPECT_EQ(textOf("selection"), "1 selected · 2 GB");
  press(Qt::Key_Return);
  EXPECT_EQ(test.model().route(), Route::confirmation);
}

TEST_F(Results, SayWhyThereIsNothingAndShowTheIssuesBelow) {
  struct Row {
    ScanMode mode;
    std::size_t candidates, issues;
    const char* filter;
    const char* title;
    bool isListShown;
  };
  for (const Row& row : {
           Row{ScanMode::caches, 0, 0, "", "Nothing to clean here", false},
           Row{ScanMode::project, 0, 2, "", "Nothing to clean here", true},
           Row{ScanMode::project, 1, 0, "zzz", "No matching items", false},
           Row{ScanMode::project, 1, 2, "zzz", "No matching items", true},
           Row{ScanMode::project, 1, 2, "", "", true},
       }) {
    SCOPED_TRACE(testing::Message() << row.title << row.issues);
    show(resultOf(std::vector(row.candidates, makeCandidate("a")), row.issues), row.mode);
    find<QLineEdit>("filter").setText(row.filter);
    settle();
    auto& title = find<QLabel>("emptyTitle");
    EXPECT_EQ(title.isVisible() ? title.text() : "", row.title);
    EXPECT_EQ(list().isVisible(), row.isListShown);
    if (row.candidates > 0) continue;
    EXPECT_TRUE(find("home").hasFocus());
    EXPECT_EQ(textOf("emptyDescription"),
              row.mode == ScanMode::caches
                  ? "The known developer cache locations under this folder are already clean."
                  : "Broomtide scanned 15767 items but did not find a supported disposable "
                    "artifact in this folder.");
    if (row.issues == 0) continue;
    list().setFocus();
    press(Qt::Key_Right);
    EXPECT_EQ(rows().back(), "/home/ada/src/1");
  }
}

TEST_F(Results, TabReachesEveryControl) {
  ScanCandidate item = selectedItem("a");
  item.projectRoot = "/home/ada/src";
  show(resultOf({item}));
  QStringList reached;
  for (int tabs = 0; tabs < 12; ++tabs) {
    reached << QApplication::focusWidget()->objectName();
    test::press(Qt::Key_Tab);
  }
  for (const char* name : {"home", "filter", "sort", "Cleanup Items", "selectSafe", "unselectAll",
                           "candidates", "rescan", "moveSelected"})
    EXPECT_TRUE(reached.contains(name)) << name;
}

TEST_F(Results, AreSortedByReturnInTheOpenListAndStartAsLargestEachTime) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    show(resultOf({selectedItem("b", 9), makeCandidate("a", 1)}));
    EXPECT_EQ(rows(), QStringList({"Safe to Clean", "b *", "a"}));
    auto& sort = find<QComboBox>("sort");
    test::click(sort);
    settle();
    QTest::keyClick(sort.view(), Qt::Key_Down);
    QTest::keyClick(sort.view(), key);
    settle();
    EXPECT_EQ(test.model().route(), Route::results);  // nothing else happened
    EXPECT_FALSE(sort.view()->isVisible());
    EXPECT_EQ(rows(), QStringList({"Safe to Clean", "a", "b *"}));
  }
}

TEST_F(Results, ScrollToWhatIsOpenedAtTheLowerEdge) {
  std::vector<ScanCandidate> many;
  for (int number = 10; number < 60; ++number)
    many.push_back(makeCandidate(std::to_string(number), number));
  show(resultOf(std::move(many)));
  press(Qt::Key_End);
  press(Qt::Key_Right);
  const QModelIndex current = list().currentIndex();
  for (const int number : {current.row(), current.row() + 1})
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(row(number)))) << number;
}

TEST_F(Results, OpenDetailsAndCopyTheirCommand) {
  ScanCandidate full = makeCandidate("web/אבג", 9);
  full.projectRoot = "/home/ada/אבג";
  full.evidence = {bareName("Detected by אבג/דהו")};
  full.regenerationCommand = Message{"npm ci"};
  show(resultOf({full, makeCandidate("bare", 1)}));
  press(Qt::Key_Right);
  const auto texts = [&] { return test::texts(*details()); };
  EXPECT_THAT(texts(), testing::ElementsAre("Comes back with the next build.", "Project: אבג",
                                            "Detected by אבג/דהו", "How to regenerate", "npm ci"));
  for (const int role : {Qt::AccessibleTextRole, Qt::AccessibleDescriptionRole})
    EXPECT_FALSE(row(1).data(role).toString().contains(QChar(0x200E)));  // what is read aloud
  QApplication::clipboard()->clear();
  click("copyCommand");
  EXPECT_EQ(QApplication::clipboard()->text(), "npm ci");
  list().setFocus();
  press(Qt::Key_Left);
  EXPECT_EQ(details(), nullptr);
  press(Qt::Key_Down);
  press(Qt::Key_Right);
  EXPECT_THAT(texts(), testing::ElementsAre("Comes back with the next build."));
}

TEST_F(Results, ClicksTickBoxesAndOpenRows) {
  show(resultOf({makeCandidate("a")}));
  const QRect place = list().visualRect(row(1));
  for (const bool isOn : {true, false}) {
    for (const int x : {20, place.width() / 2})
      QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, QPoint(x, place.center().y()));
    settle();
    EXPECT_EQ(test.model().totals().selectedCount, isOn ? 1U : 0U);
    EXPECT_EQ(details() != nullptr, isOn);
  }
}

TEST_F(Results, FilterFromTheKeyboardAndKeepTheSelection) {
  show(resultOf({selectedItem("web/node_modules", 9), selectedItem("api/target", 5)}));
  press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(QApplication::focusWidget(), "target");
  EXPECT_EQ(rows(), QStringList({"Safe to Clean", "target *"}));
  EXPECT_EQ(textOf("selection"), "2 selected · 14 bytes · 1 of them hidden by the filter");
  press(Qt::Key_Return);  // to the list, not to the confirmation
  ASSERT_EQ(test.model().route(), Route::results);
  EXPECT_TRUE(list().hasFocus());
  press(Qt::Key_F, Qt::ControlModifier);
  press(Qt::Key_Escape);
  EXPECT_EQ(rows(), QStringList({"Safe to Clean", "node_modules *", "target *"}));
  EXPECT_EQ(textOf("selection"), "2 selected · 14 bytes");
}

TEST_F(Results, KeepPlaceDetailsAndHeightsWhenSortedOrFiltered) {
  show(resultOf({makeCandidate("a", 3), makeCandidate("cb", 2), makeCandidate("cc", 1),
                 makeCandidate("c", 0, reviewFirst)}));
  const int usual = list().rowHeight(1);
  press(Qt::Key_Right);
  EXPECT_NE(list().rowHeight(2), usual);
  for (const char* filter : {"c", "", "a", ""}) {
    find<QLineEdit>("filter").setText(filter);
    settle();
    EXPECT_EQ(details() != nullptr, rows().contains("a")) << filter;
    for (int number = 0; number < list().model()->rowCount(); ++number) {
      if (row(number).data(ui::KindRole) != static_cast<int>(ResultsRowKind::candidate)) continue;
      EXPECT_EQ(list().rowHeight(number), usual) << filter << number;
    }
  }
  press(Qt::Key_Down);
  press(Qt::Key_Down);
  const QString place = list().currentIndex().data().toString();
  EXPECT_NE(place, "a");
  find<QComboBox>("sort").setCurrentText("Name");
  EXPECT_EQ(list().currentIndex().data().toString(), place);
}

TEST_F(Results, WrapTheSelectionInANarrowWindow) {
  show(resultOf({makeCandidate("a")}));
  test.window().resize(820, 624);
  test.runUntil([&] { return test.window().width() == 820; });
  auto& selection = find<QLabel>("selection");
  selection.setText(QString("54321 selected ").repeated(10));  // as in a language of longer words
  QCoreApplication::processEvents();
  EXPECT_LE(selection.minimumSizeHint().width(), selection.width()) << "a part of it is cut off";
}

TEST_F(Results, OfferAMenuForTheCandidateItWasOpenedFor) {
  const test::TemporaryTree tree;
  ScanCandidate item = makeCandidate("web/we\xff%ird", 9);
  item.url = tree.folder("w\xc3\xa9%b/we\xff%ird");
  item.regenerationCommand = Message{"make"};
  show(resultOf({item, makeCandidate("b", 1)}));
  const QString path = QString::fromStdString("$'" + tree.path("w\xc3\xa9%b") + "/we\\xff%ird'");
  press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), path);
  const auto choose = [&](const QString& text) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(&list(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    auto& sort = find<QComboBox>("sort");  // the rows move under the open menu
    sort.setCurrentIndex(1 - sort.currentIndex());
    for (QAction* action : menu->actions()) {
      if (action->text() == text) action->trigger();
    }
    menu->close();
    settle();
  };
  test::UrlCatcher catcher("file");
  choose("Select");
  EXPECT_TRUE(test.model().candidates()[0].isSelected);
  choose("Copy Command");
  EXPECT_EQ(QApplication::clipboard()->text(), "make");
  choose("Copy Path");
  EXPECT_EQ(QApplication::clipboard()->text(), path);
  choose("Open Containing Folder");
  tree.run("rm -r w*b && echo echo >w\xc3\xa9%b");  // which is not opened
  choose("Open Containing Folder");
  EXPECT_THAT(catcher.opened, testing::ElementsAre("file://" + tree.path("w%C3%A9%25b")));
}

TEST_F(Results, ShowProjectsLargestFirst) {
  ScanCandidate small = makeCandidate("web/a", 1'000);
  small.projectRoot = "/home/ada/src/web";
  small.projectKinds = {ProjectKind::javascript, ProjectKind::dotnet};
  ScanCandidate large = makeCandidate("api/b", 4'000);
  large.projectRoot = "/home/ada/src/api";
  large.modificationDate = std::chrono::sys_days{std::chrono::year(2025) / 3 / 1};
  ScanCandidate other = large;
  other.relativePath = "api/c";
  show(resultOf({small, large, other, makeCandidate("outside", 9'000)}, 2));
  click("By Project");
  EXPECT_FALSE(list().isVisible());
  const auto& projects = find<QListView>("projectList");
  ASSERT_TRUE(projects.isVisible());
  EXPECT_EQ(shown(*projects.model()),
            QStringList({"api · /home/ada/src/api · newest disposable artifact Mar 1, 2025 · "
                         "2 items · 8 KB",
                         "web · /home/ada/src/web · .NET, JavaScript / TypeScript · newest "
                         "disposable artifact unknown · 1 items · 1 KB"}));
  click("Cleanup Items");
  EXPECT_TRUE(list().isVisible());
}

}  // namespace
}  // namespace broomtide
