#include "ui/shell/FolderDialog.h"

#include <QFile>
#include <QFileDialog>
#include <QLayout>
#include <QListView>
#include <QSettings>
#include <QStandardPaths>
#include <QStyledItemDelegate>
#include <QTreeView>

#include "core/Paths.h"
#include "ui/controls/Label.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

// Escapes names as the rest of the window does.
class NameDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& locale) const override {
    const bool isText = value.userType() == QMetaType::QString;
    return isText ? display::text(value.toString().toStdString())
                  : QStyledItemDelegate::displayText(value, locale);
  }
};

// Hides what is there for files and new folders, and makes room for bookmarks and dates. Qt has no
// interface for that; a child with another name in another version stays as it is.
void showFoldersOnly(QFileDialog& dialog) {
  for (const char* name : {"newFolderButton", "fileTypeLabel", "fileTypeCombo"}) {
    if (auto* part = dialog.findChild<QWidget*>(name)) part->hide();
  }
  if (auto* sidebar = dialog.findChild<QListView*>("sidebar")) {
    constexpr int sidebarWidth = 140;
    sidebar->setMinimumWidth(sidebarWidth);
  }
  auto* folders = dialog.findChild<QTreeView*>("treeView");
  if (folders == nullptr) return;
  constexpr int nameWidth = 320;
  constexpr int dateWidth = 180;
  folders->setColumnWidth(0, nameWidth);
  folders->setColumnWidth(3, dateWidth);
  for (const int column : {1, 2}) folders->hideColumn(column);  // size and kind
}

// All programs share one settings file of Qt's dialog, with its history and bookmarks. Below
// /dev/null there can be no file, so nothing is read or written.
void disableSettings() {
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

// Native dialogs have no place for a message, and some none for the text of the button.
void setUp(QFileDialog& dialog, const FolderRequest& request) {
  dialog.setObjectName("folderPicker");
  dialog.setWindowTitle(enginetext::title(request.title));
  dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::ShowDirsOnly |
                    QFileDialog::ReadOnly);
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setLabelText(QFileDialog::Accept, enginetext::title(request.prompt));
  if (request.startingAt) dialog.setDirectory(QFile::decodeName(request.startingAt->c_str()));
  showFoldersOnly(dialog);
  dialog.setItemDelegate(new NameDelegate(&dialog));

  auto* message = new Label(enginetext::title(request.message), TextStyle::body, Tone::secondary);
  message->setObjectName("message");
  message->setWordWrap(true);
  constexpr int edge = 12;
  message->setContentsMargins(edge, edge, edge, 0);
  dialog.layout()->setMenuBar(message);  // the only place above the dialog's own grid
  dialog.setAccessibleDescription(message->text());
  constexpr QSize size(720, 480);
  dialog.resize(size);
}

}  // namespace

std::optional<std::string> FolderDialog::pickFolder(const FolderRequest& request) {
  disableSettings();
  QFileDialog dialog(window_);
  setUp(dialog, request);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return QFile::encodeName(dialog.selectedFiles().front()).toStdString();
}

std::optional<std::string> FolderDialog::desktopDownloads() const {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
  if (!folder.startsWith('/')) return std::nullopt;
  return paths::standardized(QFile::encodeName(folder).toStdString());
}

}  // namespace broomtide::ui
