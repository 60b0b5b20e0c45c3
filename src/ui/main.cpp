#include <QApplication>
#include <QLoggingCategory>

#include "ui/shell/BroomtideApp.h"
#include "ui/shell/CommandLine.h"

namespace {

// Users can do nothing about most of Qt's warnings. Those of the platform plugins are logged until
// there is a window, because they say why there is none. QT_LOGGING_RULES overrides both rules.
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
