#include "ui/results/ProjectList.h"

#include <QVBoxLayout>
#include <utility>

#include "ui/controls/Label.h"
#include "ui/controls/RecordList.h"
#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

QString kindsOf(const ProjectReclaimSummary& summary) {
  QStringList titles;
  for (const ProjectKind kind : summary.kinds) {
    titles << enginetext::title(title(kind));
  }
  titles.sort();
  return titles.join(QStringLiteral(", "));
}

Record recordOf(const ProjectReclaimSummary& summary, std::int64_t largest) {
  const QString newest = display::date(summary.newestArtifactDate, ProjectList::tr("unknown"));
  return {
      .symbol = "shippingbox.fill",
      .title = display::name(summary.root),
      .warning = display::warning(summary.root),
      .subtitle = display::text(summary.root),
      .note = display::joined(
          {kindsOf(summary), ProjectList::tr("newest disposable artifact %1").arg(newest)}),
      .trailing = ProjectList::tr("%n items", nullptr, static_cast<int>(summary.candidateCount)),
      .amount = display::size(summary.reclaimableBytes),
      .share = largest > 0
                   ? static_cast<double>(summary.reclaimableBytes) / static_cast<double>(largest)
                   : 0};
}

}  // namespace

ProjectList::ProjectList(const AppModel& model, QWidget* parent) : QWidget(parent) {
  const std::vector<ProjectReclaimSummary> summaries = model.projectReclaimSummaries();
  std::vector<Record> records;
  records.reserve(summaries.size());
  for (const ProjectReclaimSummary& summary : summaries)
    records.push_back(recordOf(summary, summaries.front().reclaimableBytes));

  auto* heading = new Label(tr("Reclaimable by detected project"), TextStyle::headline);
  heading->setObjectName("projectsHeading");
  auto* list =
      new RecordList(heading->text(), std::move(records), {.hasNote = true, .hasAmount = true});
  list->setObjectName("projectList");
  setFocusProxy(list);

  auto* lines = new QVBoxLayout(this);
  lines->setContentsMargins(0, 14, 0, 0);
  lines->setSpacing(10);
  lines->addWidget(heading);
  lines->addWidget(list, 1);
}

}  // namespace broomtide::ui
