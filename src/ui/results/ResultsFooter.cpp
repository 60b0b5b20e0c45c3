#include "ui/results/ResultsFooter.h"

#include <QHBoxLayout>

#include "ui/controls/Button.h"
#include "ui/controls/Label.h"
#include "ui/look/DisplayText.h"

namespace broomtide::ui {

ResultsFooter::ResultsFooter(AppModel& model, QWidget* parent)
    : QWidget(parent),
      selection_(new Label({}, TextStyle::body, Tone::secondary)),
      move_(new Button(tr("Move Selected to Trash"), Button::Look::prominent)) {
  auto* rescan = new Button(tr("Rescan"));
  rescan->setObjectName("rescan");
  connect(rescan, &Button::clicked, this, [&model] {
    if (model.rootURL()) model.beginScan(*model.rootURL(), model.scanMode(), false);
  });
  selection_->setObjectName("selection");
  selection_->setWordWrap(true);
  move_->setObjectName("moveSelected");
  connect(move_, &Button::clicked, this, [&model] { model.showConfirmation(); });

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(16);
  row->addWidget(rescan);
  row->addWidget(selection_, 1);
  row->addWidget(move_);
}

void ResultsFooter::refresh(const Selection::Totals& totals, std::size_t hiddenCount) {
  const QString hidden = hiddenCount > 0 ? tr("%n of them hidden by the filter", nullptr,
                                              static_cast<int>(hiddenCount))
                                         : QString();
  selection_->setText(
      display::joined({tr("%n selected", nullptr, static_cast<int>(totals.selectedCount)),
                       display::size(totals.selectedBytes), hidden}));
  move_->setEnabled(totals.selectedCount > 0);
}

}  // namespace broomtide::ui
