#include <QApplication>

#include "ui/shell/BroomtideApp.h"

int main(int argumentCount, char** arguments) {
  QApplication application(argumentCount, arguments);
  broomtide::ui::BroomtideApp::introduce(application);
  broomtide::ui::BroomtideApp app;
  app.window().show();
  return QApplication::exec();
}
