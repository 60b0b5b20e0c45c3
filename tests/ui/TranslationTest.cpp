// The window in other languages: everything is translated and can be read to its end.

#include <QComboBox>
#include <QFileDialog>
#include <QMenuBar>
#include <QTableView>
#include <QTimer>

#include "app/FolderChoice.h"
#include "app/Services.h"
#include "support/EngineTexts.h"
#include "support/TemporaryTree.h"
#include "ui/Candidates.h"
#include "ui/Person.h"
#include "ui/Readable.h"
#include "ui/SpokenLanguage.h"
#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"
#include "ui/results/CandidateMenu.h"
#include "ui/results/ResultsRoles.h"
#include "ui/shell/FolderDialog.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr std::int64_t wideSize = 888'880'000'000;

// An item whose names have no letters, with much to be said about it.
ScanCandidate item(int number, SafetyLevel safety, GitItemStatus status) {
  ScanCandidate result = test::makeCandidate("1/" + std::to_string(number), wideSize, safety);
  result.url = "/1/2/" + result.relativePath;
  result.modificationDate = std::chrono::sys_days{2026y / 12 / 28} + 12h;
  result.category = "Dependency Cache";
  result.explanation =
      "Debug symbols copied from connected iOS devices. Xcode copies them again on "
      "the next connection, which takes a while.";
  result.projectRoot = "/1/2/1";
  result.projectKinds = {ProjectKind::javascript, ProjectKind::swift};
  const std::set<std::string> lines = test::evidenceLines();
  result.evidence = Evidence({lines.begin(), lines.end()});
  result.regenerationCommand =
      "Recreate the environment and install dependencies from the project "
      "lock or requirements file.";
  if (status == GitItemStatus::untracked) result.confidence = DetectionConfidence::medium;
  result.gitStatus = status;
  return result;
}

ScanResult everything() {
  using enum SafetyLevel;
  using enum GitItemStatus;
  ScanResult result{{item(1, safe, ignored), item(2, usuallySafe, unavailable),
                     item(3, reviewFirst, untracked), item(4, reviewFirst, tracked)},
                    {},
                    {}};
  for (ScanCandidate& candidate : result.candidates) candidate.isSelected = true;
  result.candidates.back().modificationDate.reset();
  result.candidates.back().relativePath += "\u200b";
  for (int number = 0; number < 12; ++number)
    result.issues.push_back(
        ScanIssue::about("/1/2/" + std::to_string(number), "Permission denied"));
  return result;
}

struct Look {
  std::string language;
  QSize size;
};

void PrintTo(const Look& look, std::ostream* stream) {
  *stream << look.language << ' ' << look.size.width();
}

std::vector<Look> allLooks() {
  std::vector<Look> looks;
  for (const char* language : {"pseudo", "de", "zh_CN"}) {
    for (const QSize size : {QSize(820, 624), QSize(1080, 760), QSize(2560, 1440)})
      looks.push_back({language, size});
  }
  return looks;
}

// Goes through all screens in one language and size.
class AllScreens : public testing::TestWithParam<Look> {
 protected:
  AllScreens() : spoken({QString::fromStdString(GetParam().language)}), test("/1/2") { resize(); }

  void resize() {
    test.window().resize(GetParam().size);
    test::show(test.window());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
  }

  void read(const char* what) { read(test.window(), what); }

  void read(QWidget& window, const char* what) {
    resize();
    const std::vector<std::string> faults =
        GetParam().language == "pseudo" ? test::unreadable(window) : test::cutOff(window);
    for (const std::string& fault : faults) ADD_FAILURE() << what << ": " << fault;
  }

  void beginScan(const std::string& place) {
    test.script.scans.emplace_back(
        [place](const UpdateFunction& onUpdate, const std::stop_token& stop) -> ScanResult {
          test::tell(onUpdate, {123456, wideSize, place}, {}, 0);
          test::waitFor(stop);
          throw CancellationError();
        });
    test.model().beginScan("/1/2", ScanMode::project, true);
    test::TestWindow::runUntil([&] { return test.model().progress().entriesScanned == 123456; });
  }

  QTableView& list() { return test::find<QTableView>(test.window(), "candidates"); }

  void open(int row) { list().model()->setData(list().model()->index(row, 0), true, ui::OpenRole); }

  const test::SpokenLanguage spoken;
  test::TestWindow test;
};

TEST_P(AllScreens, BeforeAScan) {
  read("welcome");
  test.model().setRoute(Route::scanning);
  read("scanning nothing");
  for (const char* place : {"Preparing scan…", "Scanning Downloads…", "Scan complete",
                            "Calculating 1/2…", "Detected 3 project context(s)…", "1/2"}) {
    beginScan(place);
    read(place);
  }
}

TEST_P(AllScreens, Results) {
  test.scan(everything(), ScanMode::project, "/1/2");
  read("results");
  for (int number = list().model()->rowCount() - 1; number >= 0; --number) {
    open(number);
    list().scrollTo(list().model()->index(number, 0), QAbstractItemView::PositionAtTop);
    read("details");
  }
  list().scrollToBottom();
  read("issues");
  test::find<QLineEdit>(test.window(), "filter").setText("1/3");
  read("filtered");
  test::find<QLineEdit>(test.window(), "filter").setText("9");
  read("nothing filtered");
  test::find(test.window(), "tabs").findChildren<QPushButton*>().at(1)->click();
  read("projects");
  const ScanCandidate& candidate = test.model().candidates().front();
  ui::CandidateMenu menu(test.model(), candidate);
  menu.popup(QPoint());
  read(menu, "menu");
  menu.close();
  test.scan({}, ScanMode::caches, "/1/2");
  read("no caches");
  test.scan({}, ScanMode::project, "/1/2");
  read("no artefacts");
}

TEST_P(AllScreens, Cleanup) {
  test.scan(everything(), ScanMode::project, "/1/2");
  test.model().showConfirmation();
  read("confirmation");
  for (const bool hasFailures : {false, true}) {
    std::latch isRead(1);
    test.script.clean = [hasFailures, &isRead](const auto& items, const auto&) {
      isRead.wait();
      CleanupResult result{items, {}};
      if (hasFailures) {
        result.failures = {{"1", "1/2",
                            "Broomtide could not move this item to Trash. It may be locked, in "
                            "use, or require additional permission."},
                           {"2", "1/3", "Cleanup was cancelled."}};
      }
      return result;
    };
    test.model().setRoute(Route::confirmation);
    test.model().cleanSelectedItems();
    read("moving");
    isRead.count_down();
    test.runUntil(Route::summary);
    read("summary");
  }
  test.model().showHistory();
  test.runUntil(Route::history);
  read("history");
  test.script.history.clear();
  test.model().setRoute(Route::welcome);
  test.model().showHistory();
  test.runUntil(Route::history);
  read("no history");
}

TEST_P(AllScreens, WhatComesOverThem) {
  test::press(Qt::Key_Comma, Qt::ControlModifier);
  read(test::find(test.window(), "settings"), "settings");
  test::find(test.window(), "settings").close();
  test.window().menuBar()->actions().front()->menu()->actions().front()->trigger();
  read(test::find(test.window(), "about"), "about");
  test::find(test.window(), "about").close();
  test.picker.answer = "/1/2";
  test.model().presentFolderPicker(std::nullopt, ScanMode::caches);
  read(*test::alert(test.window()), "refusal");
  test::alert(test.window())->close();
  beginScan("1/2");
  test.model().requestStop();
  test.runUntil(Route::welcome);
  read(*test::alert(test.window()), "cancelled");
  test::alert(test.window())->close();
  test.scan(everything(), ScanMode::project, "/1/2");
  test.script.canAppend = false;
  test.model().cleanSelectedItems();
  test::TestWindow::runUntil([&] { return test::alert(test.window()) != nullptr; });
  read(*test::alert(test.window()), "no history");
}

INSTANTIATE_TEST_SUITE_P(InManyLanguages, AllScreens, testing::ValuesIn(allLooks()));

// The checks above would otherwise pass with whatever is shown.
TEST(Readable, FindsWhatIsWrong) {
  const test::SpokenLanguage pseudo({"pseudo"});
  QWidget window;
  window.resize(400, 300);
  window.show();
  const QString text = QCoreApplication::translate("Test", "Copy the command");
  const auto faults = [&](QWidget& part) {
    part.setParent(&window);
    part.show();
    const std::vector<std::string> found = test::unreadable(window);
    part.hide();
    return found;
  };
  const auto sized = [](QWidget&& part, QSize size) -> QWidget& {
    part.resize(size);
    return part;
  };
  const QSize wide(400, 40);
  EXPECT_THAT(faults(sized(ui::Label(text), wide)), IsEmpty());
  EXPECT_THAT(faults(sized(ui::Button(text), wide)), IsEmpty());
  EXPECT_THAT(faults(sized(ui::Label("Copy"), wide)), Not(IsEmpty()));
  EXPECT_THAT(faults(sized(ui::Label("%1 Copy"), wide)), Not(IsEmpty()));
  EXPECT_THAT(faults(sized(ui::Button(text), QSize(60, 40))), Not(IsEmpty()));
  EXPECT_THAT(faults(sized(ui::Label(text), QSize(60, 40))), Not(IsEmpty()));
  EXPECT_THAT(faults(sized(ui::ElidedLabel(text), QSize(60, 40))), IsEmpty());
  ui::Label named(text);
  named.setAccessibleName("Copy");
  EXPECT_THAT(faults(sized(std::move(named), wide)), Not(IsEmpty()));
}

TEST(EngineText, AnythingThatAScanSaysIsTranslated) {
  const test::TemporaryTree tree;
  tree.file("1/package.json", "{}");
  tree.file("1/node_modules/2/3", "4");
  tree.file(".npm/_cacache/1", "2");
  tree.file("9.csv", "1");
  const test::SpokenLanguage pseudo({"pseudo"});
  test::ScriptedPicker picker;
  test::RecordedAccess access;
  ui::QtMainThread main;
  const std::unique_ptr<AppModel> model = services::makeModel(main, picker, access);
  for (const ScanMode mode : {ScanMode::project, ScanMode::downloads, ScanMode::caches}) {
    std::set<std::string> places;
    const auto observation = model->observe([&](AppModel::Field field) {
      if (field == AppModel::Field::progress) places.insert(model->progress().currentPath);
    });
    model->beginScan(tree.root(), mode, true);
    test::TestWindow::runUntil([&] { return model->route() == Route::results; });
    ASSERT_THAT(model->candidates(), SizeIs(1)) << static_cast<int>(mode);
    const ScanCandidate& found = model->candidates().front();
    for (const std::string& place : places) {
      const bool isPath = place == found.relativePath || tree.root().ends_with(place);
      EXPECT_EQ(ui::enginetext::place(place).startsWith(u'⟦'), !isPath) << place;
    }
    for (const std::string& line : found.evidence.lines())
      EXPECT_TRUE(ui::enginetext::statement(line).startsWith(u'⟦')) << line;
  }
}

TEST(EngineText, KeepsWhatStandsInASentence) {
  const test::SpokenLanguage german({"de"});
  const std::vector<std::pair<std::string, QString>> statements{
      {"Detected JavaScript / TypeScript, Python project from a.csproj, package.json.",
       "Projekt (JavaScript / TypeScript, Python) anhand von a.csproj, package.json erkannt."},
      {"Well-known developer cache location (~/.npm/%2).",
       "Bekannter Ort für Entwickler-Caches (~/.npm/%2)."},
      {FolderChoice::refusal("/tmp/a\u202eb ”. c", "/home/%1"),
       "In „a\\u202eb ”. c“ wurden keine bekannten Entwickler-Caches gefunden. Wählen Sie zum "
       "Scannen von Entwickler-Caches Ihren persönlichen Ordner (/home/%1) aus."},
      {FolderChoice::refusal("/tmp/Logs", std::nullopt),
       "In „Logs“ wurden keine bekannten Entwickler-Caches gefunden. Wählen Sie zum Scannen von "
       "Entwickler-Caches Ihren persönlichen Ordner (Ihr persönlicher Ordner) aus."},
      {"npm ci", "npm ci"},
      {"", ""},
  };
  for (const auto& [english, shown] : statements)
    EXPECT_EQ(ui::enginetext::statement(english), shown);
  const std::vector<std::pair<std::string, QString>> places{
      {"Calculating a/Cache…", "a/Cache wird berechnet …"},
      {"Detected 1 project context(s)…", "1 Projekt erkannt …"},
      {"Detected 12 project context(s)…", "12 Projekte erkannt …"},
      {"Cache", "Cache"},
      {"Logs", "Logs"},  // a folder, not the category
      {"a\nb", "a\\nb"},
  };
  for (const auto& [english, shown] : places) EXPECT_EQ(ui::enginetext::place(english), shown);
}

TEST(Languages, TheFirstThatTheWindowSpeaks) {
  struct Row {
    QStringList wanted;
    const char* cancel;
    const char* size;
  };
  for (const Row& row : std::vector<Row>{
           {{}, "Cancel", "1.2 GB"},
           {{"fr", "tlh"}, "Cancel", "1.2 GB"},
           {{"en_DE", "de"}, "Cancel", "1.2 GB"},
           {{"de"}, "Abbrechen", "1,2 GB"},
           {{"fr_FR", "de_AT", "en"}, "Abbrechen", "1,2 GB"},
           {{"zh-Hans-CN"}, "取消", "1.2 GB"},
           {{"zh_SG"}, "取消", "1.2 GB"},
           {{"zh_TW"}, "Cancel", "1.2 GB"},
       }) {
    const test::SpokenLanguage language(row.wanted);
    EXPECT_EQ(QCoreApplication::translate("broomtide::ui::ConfirmationView", "Cancel"), row.cancel);
    EXPECT_EQ(ui::display::size(1'200'000'000), row.size) << row.wanted.join(' ').toStdString();
  }
}

TEST(Languages, ValuesAreThoseOfTheLanguage) {
  const Date date = std::chrono::sys_days{2026y / 3 / 1} + 9h + 30min;
  struct Row {
    QStringList language;
    std::vector<QString> sizes;
    QString date;
    QString dateAndTime;
  };
  for (const Row& row : std::vector<Row>{
           {{"de"},
            {"0 KB", "1 Byte", "999 Byte", "12,5 MB", "-1,25 TB"},
            "01.03.2026",
            "01.03.2026 um 09:30"},
           {{"zh_CN"},
            {"0 KB", "1 字节", "999 字节", "12.5 MB", "-1.25 TB"},
            "2026年3月1日",
            "2026年3月1日 09:30"},
           {{"en_US"},
            {"Zero KB", "1 byte", "999 bytes", "12.5 MB", "-1.25 TB"},
            "Mar 1, 2026",
            "Mar 1, 2026 at 9:30 AM"},
       }) {
    const test::SpokenLanguage language(row.language);
    std::vector<QString> sizes;
    for (const std::int64_t size : {0LL, 1LL, 999LL, 12'500'000LL, -1'250'000'000'000LL})
      sizes.push_back(ui::display::size(size));
    EXPECT_EQ(sizes, row.sizes);
    EXPECT_EQ(ui::display::date(date, {}), row.date);
    EXPECT_EQ(ui::display::dateAndTime(date), row.dateAndTime);
  }
}

TEST(Languages, NamesAreInTheirOrderAndCategoriesAreFoundAsTheyAreShown) {
  const test::SpokenLanguage chinese({"zh_CN"});
  test::TestWindow test;
  test::show(test.window());
  test.scan(test::resultOf(
      {test::makeCandidate("重"), test::makeCandidate("啊"), test::makeCandidate("大")}));
  auto& list = test::find<QTableView>(test.window(), "candidates");
  const auto shown = [&] {
    std::vector<std::string> names;
    for (int row = 1; row < list.model()->rowCount(); ++row)
      names.push_back(list.model()->index(row, 0).data().toString().toStdString());
    return names;
  };
  test::find<QComboBox>(test.window(), "sort").setCurrentIndex(1);
  EXPECT_THAT(shown(), ElementsAre("啊", "大", "重"));
  auto& filter = test::find<QLineEdit>(test.window(), "filter");
  filter.setText("构建 大");
  EXPECT_THAT(shown(), ElementsAre("大"));
  filter.setText("Build");
  EXPECT_THAT(shown(), IsEmpty());
}

TEST(Languages, TheFolderDialogSpeaksThemToo) {
  const test::SpokenLanguage pseudo({"pseudo"});
  const test::TemporaryTree tree;
  for (const ScanMode mode : {ScanMode::project, ScanMode::downloads, ScanMode::caches}) {
    QStringList texts;
    QTimer::singleShot(0, QCoreApplication::instance(), [&texts] {
      auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      texts = {dialog->windowTitle(), dialog->labelText(QFileDialog::Accept),
               dialog->labelText(QFileDialog::Reject), dialog->labelText(QFileDialog::LookIn),
               dialog->findChild<QLabel*>("message")->text()};
      dialog->reject();
    });
    ui::FolderDialog dialog;
    EXPECT_EQ(dialog.pickFolder(FolderChoice::request(mode, tree.root())), std::nullopt);
    EXPECT_THAT(texts, SizeIs(5));
    for (const QString& text : texts) EXPECT_TRUE(text.startsWith(u'⟦')) << text.toStdString();
  }
}

}  // namespace
}  // namespace broomtide
