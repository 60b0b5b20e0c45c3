#include "ui/shell/MainWindow.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>

#include "ui/look/Symbols.h"
#include "ui/shell/ContentView.h"
#include "ui/shell/SettingsPanel.h"
#include "ui/shell/Website.h"

namespace broomtide::ui {
namespace {

constexpr QSize comfortable(1080, 760);

void open(const QString& address) { QDesktopServices::openUrl(QUrl(address)); }

}  // namespace

MainWindow::MainWindow(AppModel& model) : model_(model) {
  setObjectName("mainWindow");
  setWindowTitle(tr("Broomtide"));
  addApplicationMenu();
  addHelpMenu();
  setCentralWidget(new ContentView(model));
  resize(comfortable.boundedTo(screen()->availableSize()));
}

void MainWindow::addApplicationMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Broomtide"));
  menu->addAction(tr("&About Broomtide"), this, &MainWindow::showAbout);
  menu->addAction(tr("Check for &Updates…"), this, [] { open(website::updates()); });
  menu->addSeparator();
  QAction* settings = menu->addAction(tr("&Settings…"), this, &MainWindow::showSettings);
  settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
  menu->addSeparator();
  QAction* quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
  quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void MainWindow::addHelpMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Help"));
  menu->addAction(tr("Broomtide &Website"), this, [] { open(website::root()); });
  menu->addAction(tr("&Privacy Policy"), this, [] { open(website::privacyPolicy()); });
}

void MainWindow::showSettings() {
  auto* panel = findChild<SettingsPanel*>();
  if (panel == nullptr) panel = new SettingsPanel(this);
  panel->show();
  panel->raise();
  panel->activateWindow();
}

void MainWindow::showAbout() {
  auto* about = new QMessageBox(QMessageBox::NoIcon, tr("About Broomtide"),
                                tr("Broomtide %1").arg(QCoreApplication::applicationVersion()),
                                QMessageBox::Ok, this);
  about->setObjectName("about");
  about->setAttribute(Qt::WA_DeleteOnClose);
  constexpr int markSide = 58;
  about->setIconPixmap(symbols::brandMark().pixmap(markSide));
  about->setInformativeText(
      tr("Finds disposable developer files and moves them to the Trash.\n"
         "Free software under the MIT licence."));
  about->open();
}

// A scan ends here, without a word; a cleanup is asked to stop, and the model waits for that when
// the program ends, right after this.
void MainWindow::closeEvent(QCloseEvent* event) {
  model_.returnHome();
  model_.requestStop();
  QMainWindow::closeEvent(event);
}

}  // namespace broomtide::ui
