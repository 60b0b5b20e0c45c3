#include <QApplication>
#include <QLoggingCategory>

#include "ui/shell/BroomtideApp.h"
#include "ui/shell/CommandLine.h"

namespace {

// What Qt finds unusual about a desktop is nothing that people can use, but why there is no window
// is. Those who want all of it can have it with QT_LOGGING_RULES="*.warning=true".
constexpr auto startupLogging = QLatin1String(
    "*.warning=false\nqt.qpa.plugin.warning=true\nqt.qpa.xcb.warning=true\n"
    "qt.qpa.wayland.warning=true");
constexpr auto runningLogging = QLatin1String("*.warning=false");

}  // namespace

int main(int argc, char** argv) {
  namespace ui = broomtide::ui;
  QLoggingCategory::setFilterRules(startupLogging);
  QStringList arguments;
  for (int position = 0; position < argc; ++position)
    arguments << QString::fromLocal8Bit(argv[position]);
  if (const auto status = ui::commandline::answerWithoutWindow(arguments)) return *status;

  QApplication application(argc, argv);
  QLoggingCategory::setFilterRules(runningLogging);
  ui::BroomtideApp::configure(application);
  if (const auto status = ui::commandline::rejection(QApplication::arguments())) return *status;
  ui::BroomtideApp app;
  app.window().show();
  return QApplication::exec();
}
