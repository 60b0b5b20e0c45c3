#include "ui/shell/BroomtideApp.h"

#include <QApplication>
#include <cstdlib>

#include "app/Services.h"
#include "ui/controls/Keys.h"
#include "ui/look/Style.h"
#include "ui/look/Symbols.h"
#include "ui/shell/Languages.h"

namespace broomtide::ui {
namespace {

BroomtideApp* running = nullptr;

}  // namespace

BroomtideApp::BroomtideApp()
    : colours_(QDBusConnection::sessionBus()),
      model_(services::makeModel(mainThread_, folderDialog_, access_)),
      window_(*model_),
      quitting_(interruption_.token(),
                [this] { mainThread_.post([] { QCoreApplication::quit(); }); }) {
  folderDialog_.setWindow(&window_);
  running = this;
  std::atexit(endTasks);
}

BroomtideApp::~BroomtideApp() { running = nullptr; }

// Qt calls exit() in its event loop when the display is lost, and then nothing is destroyed that
// stands on the stack. The window, which still refers to the model, is not used any more.
void BroomtideApp::endTasks() {
  if (running != nullptr) running->model_.reset();
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
