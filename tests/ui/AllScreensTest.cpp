// All screens in several languages: everything is translated and can be read to its end.

#include <QDir>
#include <QMenuBar>
#include <QTableView>
#include <latch>

#include "ui/Person.h"
#include "ui/Readable.h"
#include "ui/SpokenLanguage.h"
#include "ui/look/Theme.h"
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
    if (pictures.isEmpty()) {
      looks.push_back({language, QSize(820, 624), false});
      continue;
    }
    for (const QSize size : {QSize(820, 624), QSize(1080, 760), QSize(2560, 1440)}) {
      for (const bool isDark : {false, true}) looks.push_back({language, size, isDark});
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

  // Reads a window, or the one of the test.
  void read(QString what, QWidget* window = nullptr) {
    resize();
    if (window == nullptr) window = &test.window();
    const std::vector<std::string> faults =
        GetParam().language == "pseudo" ? test::unreadable(*window) : test::cutOff(*window);
    for (const std::string& fault : faults) ADD_FAILURE() << what.toStdString() << ": " << fault;
    if (pictures.isEmpty()) return;
    const std::string look = testing::PrintToString(GetParam());
    const QString name = what.replace('/', '-') + '-' + QString::fromStdString(look) + ".png";
    EXPECT_TRUE(window->grab().save(QDir(pictures).filePath(name)));
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

  const test::SpokenLanguage spoken;
  test::TestWindow test;
};

TEST_P(AllScreens, UpToTheResults) {
  read("welcome");
  test.model().setRoute(Route::scanning);
  read("scanning nothing");
  beginScan("Calculating 1/2…");
  read("scanning");
  test.scan(everything(), ScanMode::project, "/1/2");
  for (int number = list().model()->rowCount() - 1; number >= 0; --number) {
    list().model()->setData(list().model()->index(number, 0), true, ui::OpenRole);
    list().scrollTo(list().model()->index(number, 0), QAbstractItemView::PositionAtTop);
    read("results");
  }
  list().scrollToBottom();
  read("issues");
  for (const char* filter : {"1/3", "9"}) {
    test::find<QLineEdit>(test.window(), "filter").setText(filter);
    read(QString("filtered ") + filter);
  }
  test::find(test.window(), "tabs").findChildren<QPushButton*>().at(1)->click();
  read("projects");
  ui::CandidateMenu menu(test.model(), test.model().candidates().front());
  menu.popup(QPoint());
  read("menu", &menu);
  for (const ScanMode mode : {ScanMode::caches, ScanMode::project}) {
    test.scan({{}, everything().issues, {}}, mode, "/1/2");
    read(mode == ScanMode::caches ? "no caches" : "no artefacts");
  }
}

TEST_P(AllScreens, FromTheConfirmationOn) {
  test.scan(everything(), ScanMode::project, "/1/2");
  for (const char* failure :
       {"",
        "Broomtide could not move this item to Trash. It may be locked, in use, or require "
        "additional permission."}) {
    std::latch isRead(1);
    test.script.clean = [&](const auto& items, const auto&) {
      isRead.wait();
      CleanupResult result{items, {}};
      if (*failure != 0) result.failures = {{"1", "1/2", failure}};
      return result;
    };
    test.model().setRoute(Route::confirmation);
    read("confirmation");
    test.model().cleanSelectedItems();
    read("moving");
    isRead.count_down();
    test.runUntil(Route::summary);
    read(QString("summary ") + (*failure != 0 ? "failed" : ""));
  }
  for (const char* history : {"history", "no history"}) {
    test.model().setRoute(Route::welcome);
    test.model().showHistory();
    test.runUntil(Route::history);
    read(history);
    test.script.history.clear();
  }
}

TEST_P(AllScreens, WhatComesOverThem) {
  QWidget& window = test.window();
  const auto readAlert = [&](const char* what) {
    test.runUntil([&] { return test::alert(window) != nullptr; });
    read(what, test::alert(window));
    test::alert(window)->close();
  };
  test::press(Qt::Key_Comma, Qt::ControlModifier);
  test.window().menuBar()->actions().front()->menu()->actions().front()->trigger();
  for (const char* name : {"settings", "about"}) read(name, &test::find(window, name));
  for (const char* name : {"settings", "about"}) test::find(window, name).close();
  test.picker.answer = "/1/2";
  test.model().presentFolderPicker(std::nullopt, ScanMode::caches);
  readAlert("refusal");
  beginScan("1/2");
  test.model().requestStop();
  readAlert("cancelled");
  test.scan(everything(), ScanMode::project, "/1/2");
  test.script.canAppend = false;
  test.model().cleanSelectedItems();
  readAlert("no history written");
}

INSTANTIATE_TEST_SUITE_P(InManyLanguages, AllScreens, testing::ValuesIn(allLooks()));

}  // namespace
}  // namespace broomtide
