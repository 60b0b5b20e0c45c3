#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QStackedWidget>
#include <QTest>
#include <algorithm>
#include <latch>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/ScannerError.h"
#include "ui/TestWindow.h"

QT_BEGIN_NAMESPACE
/// How failures show a text.
inline void PrintTo(const QString& text, std::ostream* stream) { *stream << text.toStdString(); }
QT_END_NAMESPACE

/// What a person sees and does at the window. Keys and clicks take the way that those of the
/// desktop take, so that what cannot be reached that way fails the test.
namespace broomtide::test {

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

/// Moves the pointer over the middle of a part, from the corner of the window.
inline void pointAt(const QWidget& part) {
  QCoreApplication::processEvents();
  const QWidget& window = *part.window();
  QTest::mouseMove(window.windowHandle(), QPoint(1, window.height() - 1));
  QTest::mouseMove(window.windowHandle(), part.mapTo(&window, part.rect().center()));
  QCoreApplication::processEvents();
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

/// A selected item below the scanned folder.
inline ScanCandidate selectedItem(const std::string& path, std::int64_t size) {
  ScanCandidate result;
  result.url = "/home/ada/src/" + path;
  result.relativePath = path;
  result.size = size;
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

}  // namespace broomtide::test
