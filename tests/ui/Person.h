#pragma once

#include <gmock/gmock.h>

#include <QDesktopServices>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QStackedWidget>
#include <QTest>
#include <QUrl>
#include <algorithm>
#include <functional>
#include <latch>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "app/FakeServices.h"
#include "core/ServiceInterfaces.h"
#include "ui/shell/MainWindow.h"
#include "ui/shell/QtMainThread.h"

QT_BEGIN_NAMESPACE
/// How failures show a text.
inline void PrintTo(const QString& text, std::ostream* stream) { *stream << text.toStdString(); }
QT_END_NAMESPACE

/// What a person sees and does at the window. Keys and clicks take the way that those of the
/// desktop take, so that what cannot be reached that way fails the test.
namespace broomtide::test {

/// The window over a model with fake services. Everything happens in the event loop.
class TestWindow {
 public:
  explicit TestWindow(std::optional<std::string> home = "/home/ada")
      : model_(servicesOf(script), AppModel::Surroundings{.mainThread = main_,
                                                          .folderPicker = picker,
                                                          .access = access,
                                                          .homeFolder = std::move(home)}),
        window_(model_) {}

  AppModel& model() { return model_; }
  ui::MainWindow& window() { return window_; }

  /// Handles events until `isDone`, however long that takes.
  static void runUntil(const std::function<bool()>& isDone) {
    while (!isDone()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  /// Handles events until the model shows this screen.
  void runUntil(Route route) {
    runUntil([&] { return model_.route() == route; });
  }

  /// Scans to the end with this result.
  void scan(ScanResult result, ScanMode mode = ScanMode::project,
            const std::string& root = "/home/ada/src") {
    script.scans.push_back([result = std::move(result)](const auto& onUpdate, const auto&) {
      tell(onUpdate, {15767, 0, "end"}, result.candidates, 0);
      return result;
    });
    model_.beginScan(root, mode, true);
    runUntil(Route::results);
  }

  Script script;
  ScriptedPicker picker;
  RecordedAccess access;

 private:
  ui::QtMainThread main_;
  AppModel model_;
  ui::MainWindow window_;
};

/// A folder that a scan of /home/ada/src could find; safe, certain and ignored by Git.
inline ScanCandidate makeCandidate(const std::string& path, std::int64_t size = 1000,
                                   SafetyLevel safety = SafetyLevel::safe) {
  ScanCandidate candidate;
  candidate.url = "/home/ada/src/" + path;
  candidate.relativePath = path;
  candidate.kind = CandidateKind::directory;
  candidate.size = size;
  candidate.category = "Build Output";
  candidate.safety = safety;
  candidate.explanation = "Comes back with the next build.";
  candidate.confidence = DetectionConfidence::high;
  candidate.gitStatus = GitItemStatus::ignored;
  return candidate;
}

inline ScanResult resultOf(std::vector<ScanCandidate> candidates, std::size_t issueCount = 0) {
  ScanResult result{std::move(candidates), {}, {}};
  for (std::size_t number = 0; number < issueCount; ++number) {
    result.issues.push_back(
        ScanIssue::about("/home/ada/src/" + std::to_string(number), "Permission denied"));
  }
  return result;
}

/// Shows the window, and waits until keys go to it.
inline void show(QWidget& window) {
  window.show();
  window.activateWindow();
  TestWindow::runUntil([&] { return window.isActiveWindow(); });
}

/// The screen that fills the window.
inline QWidget& screen(const QMainWindow& window) {
  return *dynamic_cast<QStackedWidget&>(*window.centralWidget()).currentWidget();
}

/// The only part of `place` with this name.
template <typename Part = QWidget>
Part& find(const QWidget& place, const char* name) {
  const QList<Part*> found = place.findChildren<Part*>(QString::fromLatin1(name));
  if (found.size() != 1)
    throw std::logic_error(std::to_string(found.size()) + " parts are named " + name);
  return *found.front();
}

/// Clicks into the middle of a part.
inline void click(const QWidget& part, Qt::MouseButton button = Qt::LeftButton) {
  QCoreApplication::processEvents();  // what has just been shown is laid out
  const QWidget& window = *part.window();
  const QPoint place = part.mapTo(&window, part.rect().center());
  const QWidget* hit = window.childAt(place);
  if (!part.isVisible() || (hit != &part && !part.isAncestorOf(hit)))
    throw std::logic_error(part.objectName().toStdString() + " cannot be clicked");
  QTest::mouseClick(window.windowHandle(), button, Qt::NoModifier, place);
}

/// Presses and releases a key, wherever the focus is.
inline void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  TestWindow::runUntil([] { return QGuiApplication::focusWindow() != nullptr; });
  QCoreApplication::processEvents();
  QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
}

/// The key is still held down since it was pressed.
inline void repeat(Qt::Key key) {
  QTest::simulateEvent(QGuiApplication::focusWindow(), true, key, Qt::NoModifier, {}, true);
}

/// The texts of all visible labels, in the order in which people read them.
inline std::vector<std::string> texts(const QWidget& place) {
  QCoreApplication::processEvents();
  std::vector<std::pair<QPoint, std::string>> found;
  for (const QLabel* label : place.findChildren<QLabel*>()) {
    const QPoint middle = label->mapTo(&place, label->rect().center());
    if (label->isVisible()) found.emplace_back(middle, label->text().toStdString());
  }
  std::ranges::sort(found, [](const auto& a, const auto& b) {
    return std::pair(a.first.y(), a.first.x()) < std::pair(b.first.y(), b.first.x());
  });
  std::vector<std::string> result;
  for (auto& [middle, text] : found) result.push_back(std::move(text));
  return result;
}

/// The alert over the window, if it is open.
inline QMessageBox* alert(const QWidget& window) {
  const auto all = window.findChildren<QMessageBox*>(QStringLiteral("alert"));
  const auto open = std::ranges::find_if(all, &QWidget::isVisible);
  return open == all.end() ? nullptr : *open;
}

/// The same, selected.
inline ScanCandidate selectedItem(const std::string& path, std::int64_t size = 1000) {
  ScanCandidate result = makeCandidate(path, size);
  result.isSelected = true;
  return result;
}

/// A scan that goes on until it is asked to stop, and then counts down.
inline Script::Scan scanUntilStopped(std::latch& hasStopped) {
  return [&hasStopped](const auto&, const std::stop_token& stop) -> ScanResult {
    waitFor(stop);
    hasStopped.count_down();
    throw CancellationError();
  };
}

/// Stands in for the program that opens addresses, as long as it lives.
class UrlCatcher final : public QObject {
  Q_OBJECT
 public:
  explicit UrlCatcher(const QString& scheme) : scheme_(scheme) {
    QDesktopServices::setUrlHandler(scheme, this, "open");
  }
  ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(scheme_); }

  std::vector<std::string> opened;

 public slots:
  void open(const QUrl& address) { opened.push_back(address.toEncoded().toStdString()); }

 private:
  const QString scheme_;
};

/// A test at the window, which is shown.
class AtTheWindow : public testing::Test {
 protected:
  explicit AtTheWindow(std::optional<std::string> home = "/home/ada") : test(std::move(home)) {
    show(test.window());
  }

  QWidget& screen() { return test::screen(test.window()); }

  template <typename Part = QWidget>
  Part& find(const char* name) {
    return test::find<Part>(screen(), name);
  }

  QString textOf(const char* label) { return find<QLabel>(label).text(); }

  TestWindow test;
};

}  // namespace broomtide::test
