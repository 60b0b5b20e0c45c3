#include "ui/shell/MainWindow.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/look/Symbols.h"
#include "ui/shell/ContentView.h"

namespace broomtide::ui {
namespace {

constexpr QSize preferredSize(1080, 760);
constexpr int markSide = 58;

void openPage(const char* page) {
  QDesktopServices::openUrl(QUrl(QStringLiteral("https://broomtide.example/") + page));
}

QString version() {
  const QString version = QCoreApplication::applicationVersion();
  return version.isEmpty() ? QStringLiteral("—") : version;
}

// Says which version this is and that nothing leaves the machine. There is nothing to set.
class SettingsPanel final : public QDialog {
  Q_DECLARE_TR_FUNCTIONS(broomtide::ui::SettingsPanel)
 public:
  explicit SettingsPanel(QWidget* parent);
};

SettingsPanel::SettingsPanel(QWidget* parent) : QDialog(parent) {
  constexpr int panelWidth = 420;
  constexpr int padding = 24;
  setObjectName("settings");
  setWindowTitle(tr("Settings"));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* name = new Label(tr("Broomtide"), TextStyle::secondTitle);
  auto* promise = new Label(
      tr("Scans stay on this Mac. Broomtide never uploads file names, paths, or scan results."),
      TextStyle::body, Tone::secondary);
  promise->setObjectName("promise");
  promise->setWordWrap(true);
  auto* number = new Label(tr("Version %1").arg(version()), TextStyle::smallest, Tone::tertiary);
  number->setObjectName("version");
  number->makeSelectable();

  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  for (Label* label : {name, promise, number}) column->addWidget(label);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(padding, padding, padding, padding);
  row->setSpacing(16);
  row->addWidget(new BrandMark(markSide), 0, Qt::AlignTop);
  row->addLayout(column, 1);
  setFixedWidth(panelWidth);
  setFixedHeight(row->heightForWidth(panelWidth));
}

}  // namespace

MainWindow::MainWindow(AppModel& model) : model_(model) {
  setObjectName("mainWindow");
  setWindowTitle(tr("Broomtide"));
  addApplicationMenu();
  addHelpMenu();
  setCentralWidget(new ContentView(model));
  resize(preferredSize.boundedTo(screen()->availableSize()));
}

void MainWindow::addApplicationMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Broomtide"));
  menu->addAction(tr("&About Broomtide"), this, &MainWindow::showAbout);
  menu->addAction(tr("Check for &Updates…"), this, [] { openPage("releases/"); });
  menu->addSeparator();
  QAction* settings = menu->addAction(tr("&Settings…"), this, &MainWindow::showSettings);
  settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
  menu->addSeparator();
  QAction* quit = menu->addAction(tr("&Quit"), this, &QWidget::close);
  quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void MainWindow::addHelpMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Help"));
  menu->addAction(tr("Broomtide &Website"), this, [] { openPage(""); });
  menu->addAction(tr("&Privacy Policy"), this, [] { openPage("docs/privacy/"); });
}

void MainWindow::showSettings() {
  auto* panel = findChild<QDialog*>("settings");
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
  about->setIconPixmap(symbols::brandMark().pixmap(markSide));
  about->setInformativeText(
      tr("Finds disposable developer files and moves them to the Trash.\n"
         "Free software under the MIT licence."));
  about->open();
}

// A scan is cancelled without a message. A cleanup is asked to stop, and the destructor of the
// model waits for it after the event loop.
void MainWindow::closeEvent(QCloseEvent* event) {
  model_.returnHome();
  model_.requestStop();
  QMainWindow::closeEvent(event);
}

}  // namespace broomtide::ui
