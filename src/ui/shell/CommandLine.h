#pragma once

#include <QStringList>
#include <optional>

namespace broomtide::ui::commandline {

/// What a start ends with when it needs no window: it was asked for help or the version, or there
/// is no display to open a window on. Prints the answer. To be asked before there is a
/// QApplication, which ends the program where it finds no display.
std::optional<int> answerWithoutWindow(const QStringList& arguments);

/// The exit status for arguments that nobody understands, told on standard error; nothing when
/// there are none. `arguments` are those that a QApplication has left over, the program first.
std::optional<int> rejection(const QStringList& arguments);

}  // namespace broomtide::ui::commandline
