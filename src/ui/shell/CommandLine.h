#pragma once

#include <QStringList>
#include <optional>

namespace broomtide::ui::commandline {

/// Answers --help and --version, and says when there is no display to open a window on, or
/// Broomtide must not run as whom it was started. Returns the exit status, nothing when a window is
/// needed. To be called before there is a QApplication, which aborts without a display.
std::optional<int> answerWithoutWindow(const QStringList& arguments);

/// Refuses arguments on standard error and returns the exit status, nothing when there are none.
/// `arguments` are those that a QApplication has left over, the program first.
std::optional<int> rejection(const QStringList& arguments);

}  // namespace broomtide::ui::commandline
