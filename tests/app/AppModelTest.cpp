#include "app/AppModel.h"

#include <latch>

#include "app/FakeServices.h"
#include "core/ServiceInterfaces.h"
#include "support/TemporaryTree.h"

namespace broomtide {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using enum AppModel::Field;
using Fields = std::vector<AppModel::Field>;

constexpr const char* cancelled = "Scan cancelled. No files were changed.";

ScanCandidate candidate(const std::string& path, std::int64_t size = 1) {
  ScanCandidate result;
  result.url = "/root/" + path;
  result.relativePath = path;
  result.size = size;
  return result;
}

std::vector<std::string> pathsOf(std::span<const ScanCandidate> candidates) {
  std::vector<std::string> paths;
  for (const ScanCandidate& item : candidates) paths.push_back(item.relativePath);
  return paths;
}

class Model : public testing::Test {
 protected:
  void crankUntil(Route route) {
    main.runUntil([&] { return model->route() == route; });
  }

  // Scans to the end with this result.
  void scan(std::vector<ScanCandidate> candidates) {
    script.scans.push_back([candidates = std::move(candidates)](const auto&, const auto&) {
      return ScanResult{candidates, {}, {}};
    });
    model->beginScan("/root", ScanMode::project, true);
    crankUntil(Route::results);
    changes.clear();
  }

  // Starts a cleanup of these items.
  void clean(const std::vector<std::string>& items) {
    std::vector<ScanCandidate> found;
    for (const std::string& path : items) {
      found.push_back(candidate(path, 10));
      found.back().isSelected = true;
    }
    scan(std::move(found));
    model->cleanSelectedItems();
  }

  std::vector<std::string> paths() const { return pathsOf(model->candidates()); }
  std::vector<std::string> selectedPaths() const { return pathsOf(model->selectedCandidates()); }

  test::TemporaryTree tree;
  test::Script script;
  test::HandCrankedThread main;
  test::ScriptedPicker picker;
  test::RecordedAccess access;
  std::unique_ptr<AppModel> model = std::make_unique<AppModel>(
      test::servicesOf(script), AppModel::Surroundings{.mainThread = main,
                                                       .folderPicker = picker,
                                                       .access = access,
                                                       .homeFolder = tree.path("home")});
  Fields changes;
  const std::shared_ptr<void> observation =
      model->observe([this](AppModel::Field field) { changes.push_back(field); });
};

TEST_F(Model, AScanShowsItsUpdatesAndThenItsResult) {
  std::vector<std::vector<std::string>> shown;
  script.scans.push_back([&](const UpdateFunction& onUpdate, const auto&) {
    std::vector<ScanCandidate> found{candidate("b", 5)};
    test::tell(onUpdate, {1, 5, "b"}, found, 0);
    found.push_back(candidate("a", 7));
    test::tell(onUpdate, {2, 12, "a"}, found, 1);
    shown.push_back(paths());  // safe to read: the main thread does nothing before the next call
    std::swap(found[0], found[1]);
    test::tell(onUpdate, {3, 0, "Finalizing"}, found, 0);
    shown.push_back(paths());
    return ScanResult{found, {ScanIssue::about("x", "y")}, {ProjectContext{}}};
  });
  model->beginScan("/some/root", ScanMode::downloads, true);
  EXPECT_THAT(changes,
              ElementsAre(candidates, scanIssues, projectContexts, cleanupResult, progress, route));
  EXPECT_EQ(model->route(), Route::scanning);
  EXPECT_EQ(model->progress(), (ScanProgress{0, 0, bareName("root")}));
  changes.clear();
  crankUntil(Route::results);
  EXPECT_THAT(changes, ElementsAre(progress, candidates, progress, candidates, progress, candidates,
                                   candidates, scanIssues, projectContexts, route));
  EXPECT_THAT(shown, ElementsAre(ElementsAre("b", "a"), ElementsAre("a", "b")));
  EXPECT_EQ(model->progress(), (ScanProgress{3, 0, "Finalizing"}));
  EXPECT_EQ(model->scanIssues().size(), 1U);
  EXPECT_EQ(model->totalBytes(), 12);
  EXPECT_EQ(model->rootURL(), "/some/root");
  EXPECT_EQ(model->scanMode(), ScanMode::downloads);
  EXPECT_THAT(access.record, ElementsAre("+/some/root"));
}

TEST_F(Model, UpdatesThatCameTogetherEndWithTheirScan) {
  const std::vector<ScanCandidate> found{candidate("b", 5), candidate("a", 7)};
  const std::vector<ScanUpdate> updates{
      {{1, 0, bareName("b")}, 0}, {{2, 5, bareName("a")}, 1}, {{3, 12, bareName("a")}, 2}};
  script.scans.push_back([found, updates](const UpdateFunction& onUpdate, const auto&) {
    onUpdate(updates, found, 0);
    return ScanResult{found, {}, {}};
  });
  const auto watch = model->observe([this](AppModel::Field field) {
    if (field == candidates && paths().size() == 1) model->returnHome();
  });
  model->beginScan("/root", ScanMode::project, true);
  main.runNext();
  EXPECT_THAT(paths(), ElementsAre());
  EXPECT_EQ(model->progress().entriesScanned, 0);
}

TEST_F(Model, NothingOfASupersededScanIsShown) {
  // The first scan ends in every possible way after the second one has begun.
  const std::vector<std::function<ScanResult()>> ends{
      [] {
        return ScanResult{{candidate("old")}, {}, {}};
      },
      []() -> ScanResult { throw CancellationError(); },
      []() -> ScanResult { throw std::system_error(EIO, std::generic_category()); },
  };
  for (const auto& end : ends) {
    std::latch hasBegun(1), isSuperseded(1);
    script.scans.push_back([&](const UpdateFunction& onUpdate, const auto&) {
      hasBegun.count_down();
      isSuperseded.wait();
      const std::vector<ScanCandidate> old{candidate("old")};
      test::tell(onUpdate, {9, 9, "old"}, old, 0);
      return end();
    });
    script.scans.push_back([&](const auto&, const auto&) {
      return ScanResult{{candidate("new")}, {}, {}};
    });
    model->beginScan("/old", ScanMode::project, true);
    hasBegun.wait();
    model->beginScan("/new", ScanMode::project, true);
    changes.clear();
    isSuperseded.count_down();
    for (int posts = 0; posts < 3; ++posts) main.runNext();  // an update and two ends
    EXPECT_THAT(paths(), ElementsAre("new"));
    EXPECT_EQ(model->progress(), (ScanProgress{0, 0, bareName("new")}));
    EXPECT_THAT(changes, ElementsAre(candidates, scanIssues, projectContexts, route));
    EXPECT_EQ(model->errorMessage(), std::nullopt);
  }
}

TEST_F(Model, GoingHomeEndsAScanSilently) {
  script.scans.push_back([&](const UpdateFunction& onUpdate, const std::stop_token& stop) {
    test::tell(onUpdate, {1, 1, "x"}, {}, 0);
    test::waitFor(stop);
    throw CancellationError();
    return ScanResult();
  });
  model->beginScan("/root", ScanMode::project, true);
  main.runNext();
  changes.clear();
  model->returnHome();
  EXPECT_THAT(changes,
              ElementsAre(candidates, scanIssues, projectContexts, cleanupResult, progress, route));
  changes.clear();
  main.runNext();  // the scan has ended
  EXPECT_THAT(changes, ElementsAre());
  EXPECT_EQ(model->progress().currentPath.text(), "Preparing scan…");
  EXPECT_EQ(model->rootURL(), std::nullopt);
  EXPECT_THAT(access.record, ElementsAre("+/root", "-/root"));
}

TEST_F(Model, AFailedScanIsTold) {
  const std::vector<std::pair<std::function<void()>, std::string>> rows{
      {[] { throw ScannerError(ScannerError::Case::invalidRoot); },
       "The selected folder no longer exists or is not a directory."},
      {[] { throw CancellationError(); }, cancelled},
      {[] { throw std::system_error(EACCES, std::generic_category(), "some call"); },
       "Permission denied"},
      {[] { throw std::runtime_error("words"); }, "words"},
  };
  for (const bool isGranted : {true, false}) {
    for (const auto& [failing, message] : rows) {
      access.isGranted = isGranted;
      access.record.clear();
      script.scans.push_back([&, failing = failing](const auto&, const auto&) {
        failing();
        return ScanResult();
      });
      model->beginScan("/root", ScanMode::project, true);
      changes.clear();
      crankUntil(Route::welcome);
      EXPECT_EQ(model->errorMessage().value_or(Message()).text(), message);
      EXPECT_THAT(changes, ElementsAre(route, errorMessage));
      EXPECT_EQ(access.record.size(), isGranted ? 2U : 1U);
      model->clearErrorMessage();
      EXPECT_EQ(model->errorMessage(), std::nullopt);
    }
  }
}

TEST_F(Model, TheFolderPickerDecides) {
  model->presentFolderPicker("/start", ScanMode::project);
  EXPECT_THAT(changes, ElementsAre());
  EXPECT_EQ(picker.requests.at(0).startingAt, "/start");
  EXPECT_EQ(picker.requests.at(0).title, "Choose a project folder");

  scan({candidate("kept")});
  picker.answer = tree.folder("plain folder");
  model->presentFolderPicker(std::nullopt, ScanMode::caches);
  EXPECT_THAT(changes, ElementsAre(errorMessage));
  EXPECT_EQ(model->errorMessage().value_or(Message()).text(),
            "No known developer cache locations were found under “plain folder”. When scanning "
            "developer caches, select your home folder (" +
                tree.path("home") + ") in the picker.");
  EXPECT_EQ(picker.requests.at(1).prompt, "Scan Caches");
  EXPECT_THAT(paths(), ElementsAre("kept"));
  EXPECT_THAT(access.record, ElementsAre("+/root"));

  tree.link("nowhere", "plain folder/.npm/_cacache");  // does not count: it leads nowhere
  model->presentFolderPicker(std::nullopt, ScanMode::caches);
  EXPECT_EQ(model->route(), Route::results);
  tree.file("plain folder/.m2/repository");  // any kind of item counts
  script.scans.push_back([](const auto&, const auto&) { return ScanResult(); });
  model->presentFolderPicker(std::nullopt, ScanMode::caches);
  EXPECT_THAT(access.record, ElementsAre("+/root", "-/root", "+" + *picker.answer));
  crankUntil(Route::results);
}

TEST_F(Model, TheDownloadsFolderIsOfferedIfThereIsOne) {
  const std::optional<std::string> none;
  tree.folder("home");
  tree.folder("data/Téléchargements");
  struct Row {
    std::optional<std::string> desktopDownloads;
    std::optional<std::string> startsAt;
  };
  const auto check = [&](const std::vector<Row>& rows) {
    for (const Row& row : rows) {
      picker.downloads = row.desktopDownloads;
      model->chooseDownloadsFolder();
      EXPECT_EQ(picker.requests.back().startingAt, row.startsAt);
      EXPECT_EQ(picker.requests.back().title, "Choose your Downloads folder");
    }
  };
  const std::string other = tree.path("data/Téléchargements");
  check({{none, none}, {other, other}, {tree.path("gone"), none}, {tree.path("home"), none}});
  tree.folder("home/Downloads");
  check({{none, tree.path("home/Downloads")}, {other, tree.path("home/Downloads")}});
}

TEST_F(Model, SelectsWhatIsSafeBeyondDoubt) {
  using enum GitItemStatus;
  struct Row {
    const char* path;
    SafetyLevel safety;
    DetectionConfidence confidence;
    GitItemStatus status;
    bool hasRepository;
  };
  std::vector<ScanCandidate> list;
  for (const Row& row : std::vector<Row>{
           {"ignored", SafetyLevel::safe, DetectionConfidence::high, ignored, true},
           {"alone", SafetyLevel::safe, DetectionConfidence::high, unavailable, false},
           {"unknown", SafetyLevel::safe, DetectionConfidence::high, unavailable, true},
           {"untracked", SafetyLevel::safe, DetectionConfidence::high, untracked, false},
           {"tracked", SafetyLevel::safe, DetectionConfidence::high, tracked, true},
           {"medium", SafetyLevel::safe, DetectionConfidence::medium, ignored, true},
           {"usually", SafetyLevel::usuallySafe, DetectionConfidence::high, ignored, true},
       }) {
    ScanCandidate item = candidate(row.path, 10);
    item.safety = row.safety;
    item.confidence = row.confidence;
    item.gitStatus = row.status;
    if (row.hasRepository) item.gitRoot = "/root";
    item.isSelected = true;
    list.push_back(item);
  }
  list[0].isSelected = false;
  scan(list);
  model->selectSafeItems();
  EXPECT_THAT(selectedPaths(), ElementsAre("ignored", "alone"));
  EXPECT_EQ(model->totals().selectedCount, 2U);
  EXPECT_EQ(model->selectedBytes(), 20);

  model->toggleCandidate("medium");
  model->toggleCandidate("alone");
  model->toggleCandidate("no such item");
  EXPECT_THAT(selectedPaths(), ElementsAre("ignored", "medium"));
  model->showConfirmation();
  EXPECT_EQ(model->route(), Route::confirmation);
  model->setRoute(Route::results);
  model->unselectAll();
  EXPECT_EQ(model->totals().selectedCount, 0U);
  model->showConfirmation();
  EXPECT_EQ(model->route(), Route::results);
}

TEST_F(Model, ACleanupIsShownAndRecorded) {
  const CleanupFailure failure{.id = "F", .path = "4", .message = bareSentence("because")};
  script.clean = [&](std::vector<ScanCandidate> items, const auto&) {
    items.pop_back();
    return CleanupResult{items, {failure}};
  };
  clean({"1", "2", "3", "4"});
  model->cleanSelectedItems();
  EXPECT_TRUE(model->isCleaning());
  model->unselectAll();  // too late for this cleanup
  crankUntil(Route::summary);
  main.runNext();
  EXPECT_THAT(changes,
              ElementsAre(isCleaning, candidates, cleanupResult, isCleaning, route, history));
  EXPECT_EQ(script.cleanups, 1);
  EXPECT_FALSE(model->isCleaning());
  EXPECT_EQ(paths().size(), 4U);
  ASSERT_EQ(model->history().size(), 1U);
  const CleanupHistoryEntry& entry = model->history()[0];
  EXPECT_EQ(entry.rootPath, "/root");
  EXPECT_EQ(entry.movedCount, 3);
  EXPECT_EQ(entry.movedBytes, 30);
  EXPECT_THAT(entry.failures, ElementsAre(failure));

  model->showHistory();
  EXPECT_EQ(model->route(), Route::summary);
  crankUntil(Route::history);
  model->backFromHistory();
  EXPECT_EQ(model->route(), Route::summary);
  model->returnHome();
  model->cleanSelectedItems();
  model->showHistory();
  crankUntil(Route::history);
  model->backFromHistory();
  EXPECT_EQ(model->route(), Route::welcome);
  EXPECT_EQ(script.cleanups, 1);
}

TEST_F(Model, AHistoryThatCannotBeWrittenIsTold) {
  script.canAppend = false;
  clean({"a"});
  main.runUntil([&] { return model->errorMessage().has_value(); });
  EXPECT_EQ(model->errorMessage().value_or(Message()).text(),
            "Cleanup finished, but Broomtide could not save the local history.");
  EXPECT_EQ(model->route(), Route::summary);
  EXPECT_TRUE(model->history().empty());
}

TEST_F(Model, MayGoAwayWhileAScanWaitsForTheMainThread) {
  script.scans.push_back([](const UpdateFunction& onUpdate, const std::stop_token& stop) {
    const std::vector<ScanCandidate> found{candidate("a")};
    test::tell(onUpdate, {1, 1, "a"}, found, 0);
    if (stop.stop_requested()) throw CancellationError();
    return ScanResult();
  });
  model->beginScan("/root", ScanMode::project, true);
  main.awaitPost();
  model.reset();
  main.runAll();  // what is left must touch neither the model nor the scan
}

TEST_F(Model, MayGoAwayWhileACleanupRuns) {
  script.clean = [](const std::vector<ScanCandidate>& items, const std::stop_token& stop) {
    test::waitFor(stop);
    return CleanupResult{{items.front()}, {}};
  };
  clean({"a"});
  model.reset();
  EXPECT_EQ(script.history.size(), 1U);
  main.runAll();
}

TEST_F(Model, ObserversMayActAndLeaveWhileTheyAreTold) {
  int calls = 0;
  std::shared_ptr<void> leaving;
  leaving = model->observe([&](AppModel::Field) {
    ++calls;
    leaving.reset();
    model->setRoute(Route::history);
  });
  model->setRoute(Route::summary);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(model->route(), Route::history);
  EXPECT_THAT(changes, ElementsAre(route, route));
}

}  // namespace
}  // namespace broomtide
