#include <QApplication>
#include <QLoggingCategory>

#include "ui/shell/BroomtideApp.h"
#include "ui/shell/CommandLine.h"

namespace {

// What Qt finds unusual about a desktop is nothing that people can use, but why there is no window
// is. Those who want all of it can have it with QT_LOGGING_RULES="*.warning=true".
constexpr auto untilThereIsAWindow = QLatin1String(
    "*.warning=false\nqt.qpa.plugin.warning=true\nqt.qpa.xcb.warning=true\n"
    "qt.qpa.wayland.warning=true");
constexpr auto fromThenOn = QLatin1String("*.warning=false");

}  // namespace

int main(int argumentCount, char** arguments) {
  namespace ui = broomtide::ui;
  QLoggingCategory::setFilterRules(untilThereIsAWindow);
  QStringList words;
  for (int position = 0; position < argumentCount; ++position)
    words << QString::fromLocal8Bit(arguments[position]);
  if (const auto status = ui::commandline::answerWithoutWindow(words)) return *status;

  QApplication application(argumentCount, arguments);
  QLoggingCategory::setFilterRules(fromThenOn);
  ui::BroomtideApp::introduce(application);
  if (const auto status = ui::commandline::rejection(QApplication::arguments())) return *status;
  ui::BroomtideApp app;
  app.window().show();
  return QApplication::exec();
}
