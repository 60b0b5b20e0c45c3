#include <QApplication>

#include "ui/shell/BroomtideApp.h"
#include "ui/shell/CommandLine.h"

int main(int argumentCount, char** arguments) {
  namespace ui = broomtide::ui;
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
