#include <QApplication>
#include <QLoggingCategory>

#include "ui/shell/BroomtideApp.h"
#include "ui/shell/CommandLine.h"

int main(int argumentCount, char** arguments) {
  namespace ui = broomtide::ui;
  // What Qt finds unusual about a desktop is nothing that people can use. Those who can bring it
  // back with QT_LOGGING_RULES="*.warning=true".
  QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
  QStringList words;
  for (int position = 0; position < argumentCount; ++position)
    words << QString::fromLocal8Bit(arguments[position]);
  if (const auto status = ui::commandline::answerWithoutWindow(words)) return *status;

  QApplication application(argumentCount, arguments);
  ui::BroomtideApp::introduce(application);
  if (const auto status = ui::commandline::rejection(QApplication::arguments())) return *status;
  ui::BroomtideApp app;
  app.window().show();
  return QApplication::exec();
}
