#include "ui/screens/ScanningView.h"

#include <QHBoxLayout>

#include "core/Paths.h"
#include "ui/controls/Button.h"
#include "ui/controls/Column.h"
#include "ui/controls/Keys.h"
#include "ui/controls/Label.h"
#include "ui/controls/Pictures.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

constexpr int maxScanWidth = 640;
constexpr int maxPathWidth = 520;

QString folderName(const AppModel& model) {
  return model.rootURL() ? display::name(paths::standardized(*model.rootURL()))
                         : ScanningView::tr("folder");
}

}  // namespace

ScanningView::ScanningView(AppModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      currentPath_(new ElidedLabel({}, TextStyle::body, Tone::secondary)),
      itemsScanned_(new Metric("itemsScanned", tr("Items scanned"), Qt::AlignHCenter)),
      reclaimable_(new Metric("reclaimable", tr("Reclaimable"), Qt::AlignHCenter)),
      matches_(new Metric("matches", tr("Matches"), Qt::AlignHCenter)),
      frame_([this] { refresh(); }) {
  setObjectName("scanning");
  auto* heading = new ElidedLabel(tr("Scanning %1").arg(folderName(model)), TextStyle::largeTitle);
  heading->setObjectName("heading");
  heading->setAlignment(Qt::AlignCenter);
  currentPath_->setObjectName("currentPath");
  currentPath_->setAlignment(Qt::AlignCenter);
  currentPath_->setFixedWidth(maxPathWidth);
  auto* back = new Button(tr("Back to Home"), Button::Look::bordered, "chevron.left");
  back->setObjectName("backToHome");
  connect(back, &Button::clicked, this, [&model] { model.returnHome(); });
  keys::setCancelAction(*this, *back);
  setAccessibleName(heading->text());  // it has the focus, so that no key clicks the button

  QVBoxLayout& lines = (new Column(*this, maxScanWidth))->lines();
  lines.setSpacing(8);
  lines.addStretch(2);
  lines.addWidget(new BusyIndicator, 0, Qt::AlignHCenter);
  lines.addSpacing(16);
  lines.addWidget(heading);
  lines.addWidget(currentPath_, 0, Qt::AlignHCenter);
  lines.addSpacing(24);
  lines.addLayout(metrics());
  lines.addSpacing(32);
  lines.addWidget(back, 0, Qt::AlignHCenter);
  lines.addStretch(3);

  observation_ = model.observe([this](AppModel::Field) { frame_.request(); });
  refresh();
}

QLayout* ScanningView::metrics() {
  auto* row = new QHBoxLayout;
  row->setSpacing(0);
  for (Metric* metric : {itemsScanned_, reclaimable_, matches_}) row->addWidget(metric, 1);
  return row;
}

void ScanningView::refresh() {
  const ScanProgress& progress = model_.progress();
  currentPath_->setText(enginetext::sentence(progress.currentPath));
  itemsScanned_->setValue(display::count(progress.entriesScanned));
  reclaimable_->setValue(display::size(progress.reclaimableBytes));
  matches_->setValue(display::count(static_cast<std::int64_t>(model_.candidates().size())));
}

}  // namespace broomtide::ui
