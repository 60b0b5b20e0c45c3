// How fast the window is: broomtide-bench-window. Prints a table; run it with nothing else going
// on.
//
// Without a screen, start it with QT_QPA_PLATFORM=offscreen, or under an X server of its own.

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "GivenServices.h"
#include "ui/shell/BroomtideApp.h"

namespace broomtide {
namespace {

std::int64_t nowInNanoseconds() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

// Memory of this process in MB, now ("VmRSS") or at most ("VmHWM").
double memory(const std::string& key) {
  std::ifstream status("/proc/self/status");
  std::string word;
  double kibibytes = 0;
  while (status >> word) {
    if (word == key + ":") status >> kibibytes;
  }
  return kibibytes * 1024 / 1e6;
}

// Notes when a frame of a window has been painted.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const QEvent::Type type = event->type();
    const bool isWindow = receiver->isWidgetType() && static_cast<QWidget*>(receiver)->isWindow();
    const bool result = QApplication::notify(receiver, event);
    if (type == QEvent::UpdateRequest && isWindow) ++frames;
    return result;
  }

  int frames = 0;
};

constexpr int rounds = 9;

double median(std::vector<double> times) {
  std::ranges::nth_element(times, times.begin() + static_cast<std::ptrdiff_t>(times.size()) / 2);
  return times[times.size() / 2];
}

class Session {
 public:
  Session(Application& application, std::size_t count, std::size_t updates)
      : application_(application),
        model_({.scanner = std::make_unique<bench::GivenScanner>(count, updates),
                .trashManager = std::make_unique<bench::NoTrash>(),
                .historyStore = std::make_unique<bench::NoHistory>()},
               {.mainThread = main_, .folderPicker = picker_, .access = access_, .homeFolder = {}}),
        observation_(model_.observe([this](AppModel::Field field) {
          if (field == AppModel::Field::route && model_.route() == Route::results) time_.start();
        })),
        window_(model_) {
    window_.show();
    awaitFrame();
  }

  // From the end of the scan to the first frame with its results, in milliseconds.
  double scan() {
    model_.beginScan("/home/somebody/src", ScanMode::project, true);
    while (model_.route() != Route::results)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return finish();
  }

  // From an action to the frame that shows it, in milliseconds; the median of some. What comes
  // before each is not counted.
  double act(
      const std::function<void(int)>& action, const std::function<void()>& before = [] {}) {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
      before();
      awaitQuiet();
      time_.start();
      action(round);
      times.push_back(finish());
    }
    return median(times);
  }

  void press(int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier,
                    key == Qt::Key_Space ? QStringLiteral(" ") : QString());
    QCoreApplication::sendEvent(list(), &press);
  }

  bool isScanning() const { return model_.route() == Route::scanning; }

  QTableView* list() { return window_.findChild<QTableView*>("candidates"); }
  template <typename Control>
  Control* control(const char* name) {
    return window_.findChild<Control*>(name);
  }

 private:
  double finish() {
    awaitFrame();
    return static_cast<double>(time_.nsecsElapsed()) / 1e6;
  }

  // Nothing more happens by itself after this.
  static void awaitQuiet() {
    constexpr int someFrames = 40;  // milliseconds
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < someFrames) QCoreApplication::processEvents();
  }

  void awaitFrame() {
    const int before = application_.frames;
    while (application_.frames == before)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  Application& application_;
  ui::QtMainThread main_;
  bench::NoPicker picker_;
  UnrestrictedAccess access_;
  AppModel model_;
  QElapsedTimer time_;
  std::shared_ptr<void> observation_;
  ui::MainWindow window_;
};

void printTime(const char* what, std::size_t count, double milliseconds, const char* bar) {
  std::printf("%-44s %7zu  %8.1f ms  %s\n", what, count, milliseconds, bar);
}

void measureResults(Application& application, std::size_t count, const char* bar) {
  const double before = memory("VmRSS");
  std::vector<double> scans;
  scans.reserve(rounds);
  for (int round = 0; round < rounds - 1; ++round)
    scans.push_back(Session(application, count, 10).scan());
  Session session(application, count, 10);
  scans.push_back(session.scan());
  printTime("end of scan to results on screen", count, median(scans), bar);
  std::printf("%-44s %7zu  %8.0f MB  (%.0f MB before, %.0f MB at most)\n",
              "memory with the results on screen", count, memory("VmRSS"), before, memory("VmHWM"));
  printTime("toggle by Space", count, session.act([&](int) { session.press(Qt::Key_Space); }),
            "(at most 16 ms)");
  printTime("Select Safe", count, session.act([&](int round) {
    session.control<QPushButton>(round % 2 == 0 ? "selectSafe" : "unselectAll")->click();
  }),
            "(at most 50 ms)");
  auto* sort = session.control<QComboBox>("sort");
  printTime("sort by name", count,
            session.act([&](int) { sort->setCurrentIndex(1); }, [&] { sort->setCurrentIndex(0); }),
            "(at most 300 ms)");
  session.press(Qt::Key_End);
  printTime("toggle the last one", count, session.act([&](int) { session.press(Qt::Key_Space); }),
            "(at most 16 ms)");
  printTime("open or close a row", count, session.act([&](int round) {
    session.press(round % 2 == 0 ? Qt::Key_Right : Qt::Key_Left);
  }),
            "(at most 50 ms)");
  printTime("filter", count, session.act([&](int round) {
    session.control<QLineEdit>("filter")->setText(QStringLiteral("api-%1").arg(round));
  }),
            "");
}

// How long the window does not answer while a scan goes on, and at its end.
void measureAnswering(Application& application, std::size_t count) {
  Session session(application, count, count);
  QElapsedTimer sinceTick;
  double longest = 0;
  QTimer tick;
  QObject::connect(&tick, &QTimer::timeout, [&] {
    if (sinceTick.isValid() && session.isScanning())
      longest = std::max(longest, static_cast<double>(sinceTick.nsecsElapsed()) / 1e6);
    sinceTick.start();
  });
  tick.start(1);
  const double atEnd = session.scan();
  printTime("longest silence while a scan delivers", count, longest, "(at most 50 ms)");
  printTime("end of that scan to results on screen", count, atEnd, "(at most 350 ms)");
}

// From the start of the process to the first frame: one child after the other.
void measureStart(const QString& program) {
  std::vector<double> times;
  for (int round = 0; round < rounds; ++round) {
    QProcess child;
    child.start(program, {QStringLiteral("first-frame"), QString::number(nowInNanoseconds())});
    child.waitForFinished();
    times.push_back(child.readAllStandardOutput().toDouble());
  }
  printTime("start to first frame, real services", 0, median(times), "(at most 250 ms)");
}

int showFirstFrame(Application& application, std::int64_t start) {
  ui::BroomtideApp app;
  app.window().show();
  while (application.frames == 0) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  std::printf("%f\n", static_cast<double>(nowInNanoseconds() - start) / 1e6);
  return 0;
}

}  // namespace
}  // namespace broomtide

int main(int argumentCount, char** arguments) {
  using namespace broomtide;
  Application application(argumentCount, arguments);
  ui::BroomtideApp::configure(application);
  const QStringList words = QApplication::arguments();
  if (words.size() == 3 && words[1] == QStringLiteral("first-frame"))
    return showFirstFrame(application, words[2].toLongLong());
  constexpr std::size_t many = 10'000;
  constexpr std::size_t veryMany = 100'000;
  measureResults(application, many, "(at most 60 ms)");
  measureResults(application, veryMany, "(at most 350 ms)");
  measureAnswering(application, veryMany);
  measureStart(words[0]);
  return 0;
}
