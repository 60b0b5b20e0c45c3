#include "ui/results/CandidateDetails.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/controls/SymbolView.h"
#include "ui/look/DisplayText.h"
#include "ui/look/Drawing.h"
#include "ui/look/EngineText.h"
#include "ui/results/RowLayout.h"

namespace broomtide::ui {
namespace {

// A command in its box, with a button that copies it.
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
  for (const std::string& reason : candidate.evidence.lines())
    addWithSymbol("checkmark.circle", enginetext::statement(reason), "evidence");
  if (candidate.regenerationCommand)
    addCommand(enginetext::statement(*candidate.regenerationCommand));
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
  connect(copy, &Button::clicked, this, [command] { QApplication::clipboard()->setText(command); });
  lines_->addWidget(new CommandBox(
      selectable(command, TextStyle::smallMonospaced, Tone::primary, "command"), copy));
}

}  // namespace broomtide::ui
