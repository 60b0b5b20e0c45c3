#include "ui/results/CandidateMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QUrl>

#include "core/FileUrl.h"
#include "core/Paths.h"

namespace broomtide::ui {
namespace {

void copy(const std::string& text) {
  QApplication::clipboard()->setText(QString::fromStdString(text));
}

// Keeps every byte of the name, whatever it is encoded in.
QUrl urlOf(std::string_view path) {
  return QUrl::fromEncoded(QByteArray::fromStdString(fileUrl(path)));
}

}  // namespace

CandidateMenu::CandidateMenu(AppModel& model, const ScanCandidate& candidate, QWidget* parent)
    : QMenu(parent) {
  setObjectName("candidateMenu");
  addAction(candidate.isSelected ? tr("Deselect") : tr("Select"), this,
            [&model, id = candidate.id()] { model.toggleCandidate(id); });
  addSeparator();
  const std::string folder(paths::enclosingFolder(candidate.url));
  addAction(tr("Open Containing Folder"), this,
            [folder] { QDesktopServices::openUrl(urlOf(folder)); });
  addAction(tr("Copy Path"), this, [path = candidate.url] { copy(path); });
  QAction* command = addAction(tr("Copy Command"), this,
                               [text = candidate.regenerationCommand] { copy(text.value_or("")); });
  command->setEnabled(candidate.regenerationCommand.has_value());
}

}  // namespace broomtide::ui
