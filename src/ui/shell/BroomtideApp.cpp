#include "ui/shell/BroomtideApp.h"

#include <QApplication>

#include "app/Services.h"
#include "ui/controls/Keys.h"
#include "ui/look/Style.h"
#include "ui/look/Symbols.h"
#include "ui/shell/Languages.h"

namespace broomtide::ui {

BroomtideApp::BroomtideApp()
    : colours_(QDBusConnection::sessionBus()),
      model_(services::makeModel(mainThread_, folderDialog_, access_)),
      window_(*model_) {
  folderDialog_.setWindow(&window_);
}

void BroomtideApp::configure(QApplication& application) {
  QApplication::setApplicationName(QStringLiteral("Broomtide"));
  QApplication::setApplicationVersion(QStringLiteral(BROOMTIDE_VERSION));
  QApplication::setDesktopFileName(QStringLiteral("broomtide"));
  languages::use(languages::preferred());
  QApplication::setStyle(new Style);
  application.setWindowIcon(symbols::brandMark());
  if (QApplication::platformName() == QStringLiteral("xcb"))
    application.installEventFilter(new keys::AutoRepeatFilter(&application));
}

}  // namespace broomtide::ui
