// Runs the tests of the window without a screen, in one language and time zone wherever they run.

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <QApplication>
#include <QString>
#include <cstdlib>

#include "ui/shell/BroomtideApp.h"

namespace {

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  if (message.startsWith("This plugin does not support")) return;  // what needs a real desktop
  ADD_FAILURE() << "Qt: " << message.toStdString();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  testing::InitGoogleTest(&argumentCount, arguments);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  ::setenv("LC_ALL", "C.UTF-8", 1);
  ::setenv("TZ", "UTC", 1);
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale::setDefault(icu::Locale::getUS(), status);

  QApplication application(argumentCount, arguments);  // may find fault with its surroundings
  qInstallMessageHandler(failOnWarning);
  broomtide::ui::BroomtideApp::configure(application);
  QApplication::setQuitOnLastWindowClosed(false);  // one test closes its window, others follow
  return RUN_ALL_TESTS();
}
