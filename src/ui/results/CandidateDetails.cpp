#include "ui/results/CandidateDetails.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QHBoxLayout>
#include <QPainter>
#include <QUrl>
#include <QVBoxLayout>
#include <filesystem>

#include "core/Paths.h"
#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/look/DisplayText.h"
#include "ui/look/Drawing.h"
#include "ui/look/EngineText.h"
#include "ui/results/RowLayout.h"

namespace broomtide::ui {
namespace {

class CommandBox final : public QWidget {
 public:
  CommandBox(Label* command, Button* copy) {
    auto* row = new QHBoxLayout(this);
    constexpr int inset = 12;
    row->setContentsMargins(inset, 2, 2, 2);
    row->setSpacing(8);
    row->addWidget(command, 1);
    row->addWidget(copy, 0, Qt::AlignTop);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& theme = Theme::of(palette());
    QPainter painter(this);
    drawing::surface(painter, rect(), theme.window, theme.border, drawing::controlRadius);
  }
};

constexpr int margin = 16;
constexpr int factSymbolSide = 16;

Label* selectable(const QString& text, TextStyle style, Tone tone, const char* name) {
  auto* label = new Label(display::unmarked(text), style, tone);
  label->setObjectName(name);
  label->setWordWrap(true);
  label->makeSelectable();
  return label;
}

void copyText(const QString& text) { QApplication::clipboard()->setText(text); }

// The URL is percent-encoded from bytes, as names need not be UTF-8. What has taken the place of a
// folder is not opened.
void openFolder(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_directory(path, error)) return;
  QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(paths::fileUrl(path))));
}

}  // namespace

CandidateDetails::CandidateDetails(const ScanCandidate& candidate, QWidget* parent)
    : QWidget(parent), lines_(new QVBoxLayout(this)) {
  setObjectName("details");
  lines_->setContentsMargins(RowLayout::textStart(), 2, margin, margin);
  lines_->setSpacing(6);
  lines_->addWidget(selectable(enginetext::statement(candidate.explanation), TextStyle::body,
                               Tone::primary, "explanation"));
  if (candidate.projectRoot)
    addWithSymbol("shippingbox", tr("Project: %1").arg(display::name(*candidate.projectRoot)),
                  "project");
  for (const Message& reason : candidate.evidence.lines())
    addWithSymbol(isCaution(reason) ? "exclamationmark.triangle" : "checkmark.circle",
                  enginetext::sentence(reason), "evidence");
  if (candidate.regenerationCommand)
    addCommand(enginetext::sentence(*candidate.regenerationCommand));
  lines_->addStretch();
}

void CandidateDetails::addWithSymbol(const QString& symbol, const QString& text, const char* name) {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(new SymbolView(symbol, factSymbolSide, Tone::secondary), 0, Qt::AlignTop);
  row->addWidget(selectable(text, TextStyle::small, Tone::secondary, name), 1);
  lines_->addLayout(row);
}

void CandidateDetails::addCommand(const QString& command) {
  lines_->addSpacing(4);
  lines_->addWidget(new Label(tr("How to regenerate"), TextStyle::smallBold));
  auto* copy = new Button(tr("Copy"), Button::Look::plain, "doc.on.doc");
  copy->setObjectName("copyCommand");
  copy->setAccessibleName(tr("Copy the command"));
  connect(copy, &Button::clicked, this, [command] { copyText(command); });
  lines_->addWidget(new CommandBox(
      selectable(command, TextStyle::smallMonospaced, Tone::primary, "command"), copy));
}

CandidateMenu::CandidateMenu(AppModel& model, const ScanCandidate& candidate, QWidget* parent)
    : QMenu(parent) {
  setObjectName("candidateMenu");
  addAction(candidate.isSelected ? tr("Deselect") : tr("Select"), this,
            [&model, id = candidate.id()] { model.toggleCandidate(id); });
  addSeparator();
  const std::string folder(paths::enclosingFolder(candidate.url));
  addAction(tr("Open Containing Folder"), this, [folder] { openFolder(folder); });
  addAction(tr("Copy Path"), this, [path = candidate.url] { copyText(display::pasteable(path)); });
  const QString commandText = candidate.regenerationCommand
                                  ? enginetext::sentence(*candidate.regenerationCommand)
                                  : QString();
  QAction* command = addAction(tr("Copy Command"), this, [commandText] { copyText(commandText); });
  command->setEnabled(candidate.regenerationCommand.has_value());
}

}  // namespace broomtide::ui
