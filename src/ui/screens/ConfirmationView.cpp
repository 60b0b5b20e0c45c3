#include "ui/screens/ConfirmationView.h"

#include <QHBoxLayout>
#include <algorithm>

#include "core/EscapedText.h"
#include "ui/controls/Button.h"
#include "ui/controls/Column.h"
#include "ui/controls/Keys.h"
#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

constexpr int maxConfirmationWidth = 640;
constexpr int maxNoteWidth = 500;
constexpr int trashSymbolSide = 62;

}  // namespace

ConfirmationView::ConfirmationView(AppModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      total_(new Label({}, TextStyle::headline)),
      warning_(new Label({}, TextStyle::body, Tone::usuallySafe)),
      move_(new Button({}, Button::Look::prominent)) {
  setObjectName("confirmation");
  total_->setObjectName("total");
  warning_->setObjectName("warning");
  auto* note = new Label(tr("Items are moved to macOS Trash, not permanently deleted. Broomtide "
                            "will validate every item again before moving it."),
                         TextStyle::body, Tone::secondary);
  note->setObjectName("note");
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignHCenter);
  note->setFixedWidth(maxNoteWidth);

  auto* question = new Label(enginetext::title(messages::moveToTrash), TextStyle::largeTitle);
  question->setWordWrap(true);
  question->setAlignment(Qt::AlignHCenter);

  QVBoxLayout& lines = (new Column(*this, maxConfirmationWidth))->lines();
  lines.setSpacing(8);
  lines.addStretch(2);
  lines.addWidget(new SymbolView("trash.circle.fill", trashSymbolSide, Tone::accent), 0,
                  Qt::AlignHCenter);
  lines.addSpacing(16);
  lines.addWidget(question);
  lines.addWidget(total_, 0, Qt::AlignHCenter);
  lines.addWidget(warning_, 0, Qt::AlignHCenter);
  lines.addSpacing(8);
  lines.addWidget(note, 0, Qt::AlignHCenter);
  lines.addSpacing(24);
  lines.addLayout(buttons());
  lines.addStretch(3);

  observation_ = model.observe([this](AppModel::Field field) {
    if (field == AppModel::Field::isCleaning || field == AppModel::Field::candidates) refresh();
  });
  refresh();
}

QLayout* ConfirmationView::buttons() {
  AppModel& model = model_;
  auto* cancel = new Button(tr("Cancel"));
  cancel->setObjectName("cancel");
  connect(cancel, &Button::clicked, this, [&model] { model.setRoute(Route::results); });
  keys::setCancelAction(*this, *cancel);

  auto* home = new Button(tr("Home"));
  home->setObjectName("home");
  connect(home, &Button::clicked, this, [&model] { model.returnHome(); });

  move_->setObjectName("moveToTrash");
  connect(move_, &Button::clicked, this, [&model] { model.cleanSelectedItems(); });
  keys::setDefaultAction(*this, *move_);
  setFocusProxy(move_);

  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addStretch();
  for (Button* button : {cancel, home, move_}) row->addWidget(button);
  row->addStretch();
  return row;
}

void ConfirmationView::refresh() {
  const Selection::Totals totals = model_.totals();
  total_->setText(tr("%n item(s) totaling %1", nullptr, static_cast<int>(totals.selectedCount))
                      .arg(display::size(totals.selectedBytes)));
  const auto unusual = std::ranges::count_if(model_.candidates(), [](const ScanCandidate& item) {
    return item.isSelected && hasUnusualCharacters(item.relativePath);
  });
  warning_->setText(
      tr("%n of them with unusual characters in the path", nullptr, static_cast<int>(unusual)));
  warning_->setVisible(unusual > 0);
  move_->setText(model_.isCleaning() ? tr("Moving…") : tr("Move to Trash"));
  if (model_.isCleaning() && move_->hasFocus()) {
    // Disabling it would pass the focus to the next button, which Return would click.
    setFocusProxy(nullptr);
    setFocus();
  }
  move_->setEnabled(!model_.isCleaning());
}

}  // namespace broomtide::ui
