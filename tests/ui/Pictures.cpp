// Paints every screen, in light and dark and in several sizes, for people to look at:
// broomtide-pictures FOLDER [LANGUAGE], in English unless the language is another one such as de,
// zh_CN or pseudo. QT_SCALE_FACTOR=2 makes them twice as sharp.

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <cstdio>

#include "app/FolderChoice.h"
#include "core/ScannerError.h"
#include "ui/PseudoLanguage.h"
#include "ui/TestWindow.h"
#include "ui/look/Style.h"
#include "ui/look/Theme.h"
#include "ui/results/ResultsRoles.h"
#include "ui/shell/BroomtideApp.h"
#include "ui/shell/FolderDialog.h"
#include "ui/shell/Languages.h"

namespace broomtide {
namespace {

using namespace std::chrono_literals;

constexpr Date someDay = std::chrono::sys_days{2026y / 3 / 1};

ScanCandidate item(const std::string& path, std::int64_t size, SafetyLevel safety,
                   std::string_view category, GitItemStatus status) {
  ScanCandidate result;
  result.url = "/home/ada/src/" + path;
  result.relativePath = path;
  result.kind = CandidateKind::directory;
  result.size = size;
  result.modificationDate = someDay - std::chrono::hours(24 * (size % 400));
  result.category = category;
  result.safety = safety;
  result.explanation = "Project-local pnpm store. Dependencies may need to be downloaded again.";
  result.isSelected = safety == SafetyLevel::safe;
  result.projectRoot = "/home/ada/src/" + path.substr(0, path.find('/'));
  result.projectKinds = {ProjectKind::javascript, ProjectKind::python};
  result.evidence = {"Detected JavaScript / TypeScript, Python project from package.json.",
                     "The path is ignored by Git.",
                     "The artifact name and project ecosystem agree."};
  result.regenerationCommand = "Run npm install, pnpm install, or yarn install.";
  result.confidence = DetectionConfidence::high;
  result.gitStatus = status;
  return result;
}

ScanResult exampleResult() {
  using enum SafetyLevel;
  using enum GitItemStatus;
  ScanResult result;
  result.candidates = {
      item("website/.next", 823'500'000, safe, "Build Output", ignored),
      item("website/node_modules/.cache", 73'500'000, safe, "Build Cache", ignored),
      item("tools/__pycache__", 120'000, safe, "Python Cache", unavailable),
      item("website/node_modules", 1'406'500'000, usuallySafe, "Dependencies", ignored),
      item("engine/a/path/that/is/long/enough/to/be/shortened/somewhere/in/its/middle/because/it/"
           "goes/on/and/on/target",
           5'712'000'000, usuallySafe, "Build Output", ignored),
      item("photo\u202egpj/אבג/דהו/node_modules\u200b", 1'400'000, safe, "Dependencies", ignored),
      item("אבג/123/target", 1'300'000, usuallySafe, "Build Output", ignored),
      item("tools/.venv", 225'700'000, usuallySafe, "Dependencies", unavailable),
      item("engine/build", 7'000'000, reviewFirst, "Build Output", untracked),
  };
  for (int number = 0; number < 12; ++number) {
    result.issues.push_back(
        ScanIssue::about("/home/ada/src/secret/" + std::to_string(number), "Permission denied"));
  }
  result.projects.resize(3);
  return result;
}

CleanupResult exampleCleanup(bool hasFailures) {
  CleanupResult result{exampleResult().candidates, {}};
  result.moved.resize(3);
  if (!hasFailures) return result;
  result.failures = {
      {"1", "website/node_modules",
       "Broomtide could not move this item to Trash. It may be locked, in use, or require "
       "additional permission."},
      {"2", "engine/build\x1b[2J", "The item changed after the scan. Rescan before cleaning it."},
  };
  return result;
}

class Photographer {
 public:
  Photographer(QDir folder, QString variant, QSize size)
      : folder_(std::move(folder)), variant_(std::move(variant)), size_(size) {}

  void shoot(test::TestWindow& test, const char* screen) {
    QWidget& window = test.window();
    window.resize(size_);
    window.show();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    save(window, screen);
  }

  void save(QWidget& window, const char* screen) {
    const QString name = QStringLiteral("%1-%2.png").arg(QLatin1String(screen), variant_);
    if (!window.grab().save(folder_.filePath(name))) std::fprintf(stderr, "cannot write\n");
  }

 private:
  QDir folder_;
  QString variant_;
  QSize size_;
};

void shootResults(Photographer& photographer, test::TestWindow& test) {
  test.scan(exampleResult());
  photographer.shoot(test, "results");
  auto* list = test.window().findChild<QTableView*>("candidates");
  list->model()->setData(list->model()->index(1, 0), true, ui::OpenRole);
  photographer.shoot(test, "results-details");
  list->model()->setData(list->model()->index(list->model()->rowCount() - 1, 0), true,
                         ui::OpenRole);
  list->scrollToBottom();
  photographer.shoot(test, "results-issues");
  test.window().findChild<QLineEdit*>("filter")->setText("node");
  photographer.shoot(test, "results-filter");
  test.window().findChild<QWidget*>("tabs")->findChildren<QPushButton*>().at(1)->click();
  photographer.shoot(test, "results-projects");
}

// What opens over the window.
void shootPanels(Photographer& photographer, test::TestWindow& test) {
  const QList<QAction*> commands = test.window().menuBar()->actions().front()->menu()->actions();
  for (const auto& [command, name] : {std::pair(0, "about"), std::pair(3, "settings")}) {
    commands.at(command)->trigger();
    QWidget& panel = *test.window().findChild<QDialog*>(name);
    QCoreApplication::processEvents();
    photographer.save(panel, name);
    panel.close();
  }
  test.picker.answer = "/nowhere/projects";
  test.model().presentFolderPicker(std::nullopt, ScanMode::caches);
  QCoreApplication::processEvents();
  photographer.save(*test.window().findChild<QDialog*>("alert"), "alert");
  test.window().findChild<QDialog*>("alert")->close();
}

void shootFolderDialog(Photographer& photographer) {
  QTimer::singleShot(0, QApplication::instance(), [&photographer] {
    QWidget& dialog = *QApplication::activeModalWidget();
    for (int round = 0; round < 5; ++round) QCoreApplication::processEvents();
    photographer.save(dialog, "folder");
    dialog.close();
  });
  ui::FolderDialog dialog;
  dialog.pickFolder(FolderChoice::request(ScanMode::caches, "/usr/share"));
}

void shootAll(Photographer photographer) {
  test::TestWindow test;
  photographer.shoot(test, "welcome");
  shootPanels(photographer, test);
  shootFolderDialog(photographer);
  test.script.scans.push_back([&](const UpdateFunction& onUpdate, const std::stop_token& stop) {
    const ScanResult found = exampleResult();
    test::tell(onUpdate, {4711, 823'500'000, "website/node_modules/some/long/path/inside/of/it"},
               found.candidates, 0);
    test::waitFor(stop);
    throw CancellationError();
    return found;
  });
  test.model().beginScan("/home/ada/src", ScanMode::project, true);
  test::TestWindow::runUntil([&] { return test.model().progress().entriesScanned == 4711; });
  photographer.shoot(test, "scanning");
  shootResults(photographer, test);
  test.model().showConfirmation();
  photographer.shoot(test, "confirmation");
  for (const bool hasFailures : {false, true}) {
    test.script.clean = [hasFailures](const auto&, const auto&) {
      return exampleCleanup(hasFailures);
    };
    test.model().setRoute(Route::confirmation);
    test.model().cleanSelectedItems();
    test.runUntil(Route::summary);
    photographer.shoot(test, hasFailures ? "summary-failures" : "summary");
  }
  test.model().showHistory();
  test.runUntil(Route::history);
  photographer.shoot(test, "history");
  test.scan({}, ScanMode::caches);
  photographer.shoot(test, "results-empty");
}

void speak(const QString& language) {
  if (language == "pseudo") {
    QApplication::installTranslator(new test::PseudoLanguage(QApplication::instance()));
  } else {
    ui::languages::use({language});
  }
}

}  // namespace
}  // namespace broomtide

int main(int argumentCount, char** arguments) {
  using broomtide::ui::Theme;
  if (argumentCount != 2 && argumentCount != 3) {
    std::fprintf(stderr, "usage: broomtide-pictures FOLDER [LANGUAGE]\n");
    return 2;
  }
  qputenv("LC_ALL", "C.UTF-8");
  QApplication application(argumentCount, arguments);
  broomtide::ui::BroomtideApp::introduce(application);
  broomtide::speak(QString::fromLocal8Bit(argumentCount == 3 ? arguments[2] : "en_US"));
  const QDir folder(QString::fromLocal8Bit(arguments[1]));
  QPalette light(Qt::white);
  QPalette dark(Qt::black);
  dark.setColor(QPalette::WindowText, Qt::white);
  light.setColor(QPalette::WindowText, Qt::black);
  for (const bool isDark : {false, true}) {
    QApplication::setPalette(Theme::of(isDark ? dark : light).palette());
    for (const QSize size : {QSize(820, 624), QSize(1080, 760), QSize(2560, 1440)}) {
      const QString variant =
          QStringLiteral("%1-%2").arg(isDark ? "dark" : "light").arg(size.width());
      broomtide::shootAll({folder, variant, size});
    }
  }
  return 0;
}
