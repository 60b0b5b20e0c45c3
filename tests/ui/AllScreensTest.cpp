// All screens in several languages: everything is translated and can be read to its end.

#include <QDir>
#include <QMenuBar>
#include <QTableView>
#include <latch>

#include "ui/Person.h"
#include "ui/Readable.h"
#include "ui/SpokenLanguage.h"
#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/results/CandidateDetails.h"
#include "ui/results/ResultsModel.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;

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
  using namespace messages;
  const auto project = {termsValue({std::string(title(ProjectKind::dotnet)), "Python"}),
                        namesValue({"1.2", "3.4"})};
  result.evidence = {{projectDetected, project},
                     {noProject},
                     {ignoredByGit},
                     {untrackedByGit},
                     {gitUnverified},
                     {noRepository},
                     {genericName},
                     {nameAgrees},
                     {downloadsRule},
                     {cacheLocation, {nameValue("1/2")}}};
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

// For people who want to look at the screens too, in English and in the dark as well.
const QString pictures = qEnvironmentVariable("BROOMTIDE_PICTURES");

struct Look {
  std::string language;
  QSize size;
  bool isDark;
};

void PrintTo(const Look& look, std::ostream* stream) {
  *stream << look.language << '-' << look.size.width() << (look.isDark ? "-dark" : "");
}

std::vector<Look> allLooks() {
  std::vector<Look> looks;
  for (const char* language : {"pseudo", "de", "zh_CN", "en"}) {
    for (const QSize size : {QSize(820, 624), QSize(1080, 760), QSize(2560, 1440)}) {
      looks.push_back({language, size, false});
      if (!pictures.isEmpty()) looks.push_back({language, size, true});
    }
  }
  return looks;
}

// Goes through all screens in one language and size.
class AllScreens : public testing::TestWithParam<Look> {
 protected:
  AllScreens() : spoken({QString::fromStdString(GetParam().language)}), test("/1/2") {
    if (GetParam().isDark) QApplication::setPalette(ui::Theme::dark().palette());
    resize();
  }

  ~AllScreens() override {
    if (GetParam().isDark) QApplication::setPalette(QPalette());
  }

  void resize() {
    test.window().resize(GetParam().size);
    test::show(test.window());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
  }

  void read(const char* what) { read(test.window(), what); }

  void read(QWidget& window, QString what) {
    resize();
    const std::vector<std::string> faults =
        GetParam().language == "pseudo" ? test::unreadable(window) : test::cutOff(window);
    for (const std::string& fault : faults) ADD_FAILURE() << what.toStdString() << ": " << fault;
    if (pictures.isEmpty()) return;
    const std::string look = testing::PrintToString(GetParam());
    const QString name = what.replace('/', '-') + '-' + QString::fromStdString(look) + ".png";
    EXPECT_TRUE(window.grab().save(QDir(pictures).filePath(name)));
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
  const QSize wide(400, 40);
  const QSize narrow(60, 40);
  const auto isReadable = [&](QWidget&& part, QSize size) {
    part.resize(size);
    part.setParent(&window);
    part.show();
    return test::unreadable(window).empty();
  };
  EXPECT_TRUE(isReadable(ui::Label(text), wide));
  EXPECT_TRUE(isReadable(ui::ElidedLabel(text), narrow));
  EXPECT_FALSE(isReadable(ui::Label("%1 Copy"), wide));
  EXPECT_FALSE(isReadable(ui::Button(text), narrow));
  EXPECT_FALSE(isReadable(ui::Label(text), narrow));
  ui::Label named(text);
  named.setAccessibleName("Copy");
  EXPECT_FALSE(isReadable(std::move(named), wide));
}

}  // namespace
}  // namespace broomtide
