#include "ui/results/CandidateMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QUrl>
#include <filesystem>

#include "core/FileUrl.h"
#include "core/Paths.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

void copy(const QString& text) { QApplication::clipboard()->setText(text); }

// The address keeps every byte of the name, whatever it is encoded in. What has taken the place of
// a folder is not opened.
void openFolder(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_directory(path, error)) return;
  QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(fileUrl(path))));
}

}  // namespace

CandidateMenu::CandidateMenu(AppModel& model, const ScanCandidate& candidate, QWidget* parent)
    : QMenu(parent) {
  setObjectName("candidateMenu");
  addAction(candidate.isSelected ? tr("Deselect") : tr("Select"), this,
            [&model, id = candidate.id()] { model.toggleCandidate(id); });
  addSeparator();
  const std::string folder(paths::enclosingFolder(candidate.url));
  addAction(tr("Open Containing Folder"), this, [folder] { openFolder(folder); });
  addAction(tr("Copy Path"), this, [path = candidate.url] { copy(display::pasteable(path)); });
  const QString commandText = enginetext::statement(candidate.regenerationCommand.value_or(""));
  QAction* command = addAction(tr("Copy Command"), this, [commandText] { copy(commandText); });
  command->setEnabled(candidate.regenerationCommand.has_value());
}

}  // namespace broomtide::ui
