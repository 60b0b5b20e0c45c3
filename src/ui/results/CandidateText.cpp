#include "ui/results/CandidateText.h"

#include <QCoreApplication>
#include <QStringList>

#include "ui/look/DisplayText.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui::candidatetext {
namespace {

class CandidateText {
  Q_DECLARE_TR_FUNCTIONS(CandidateText)
};

QString dateOf(const ScanCandidate& candidate) {
  return display::date(candidate.modificationDate, CandidateText::tr("Unknown date"));
}

}  // namespace

QString safety(SafetyLevel level) { return enginetext::title(title(level)); }

QString symbol(CandidateKind kind) {
  switch (kind) {
    case CandidateKind::directory:
      return QStringLiteral("folder.fill");
    case CandidateKind::file:
      break;
  }
  return QStringLiteral("doc.fill");
}

QString note(const ScanCandidate& candidate) {
  return display::joined({enginetext::title(candidate.category),
                          enginetext::title(title(candidate.confidence)),
                          enginetext::title(title(candidate.gitStatus)), dateOf(candidate)});
}

QString accessibleText(const ScanCandidate& candidate, bool isExpanded) {
  const QStringList parts{
      display::name(candidate.url),
      display::warning(candidate.relativePath),
      enginetext::title(candidate.category),
      safety(candidate.safety),
      display::size(candidate.size),
      candidate.isSelected ? CandidateText::tr("selected") : CandidateText::tr("not selected"),
      enginetext::title(title(candidate.confidence)),
      enginetext::title(title(candidate.gitStatus)),
      dateOf(candidate),
      display::text(candidate.relativePath),
      isExpanded ? CandidateText::tr("details shown") : CandidateText::tr("details hidden")};
  return display::unmarked(display::joined(parts, QStringLiteral(", ")));
}

QString accessibleDetails(const ScanCandidate& candidate) {
  QStringList lines{enginetext::statement(candidate.explanation)};
  if (candidate.projectRoot)
    lines << CandidateText::tr("Project: %1").arg(display::name(*candidate.projectRoot));
  for (const Message& reason : candidate.evidence.lines()) lines << enginetext::sentence(reason);
  if (candidate.regenerationCommand)
    lines << CandidateText::tr("How to regenerate: %1")
                 .arg(enginetext::sentence(*candidate.regenerationCommand));
  return display::unmarked(lines.join(u'\n'));
}

}  // namespace broomtide::ui::candidatetext
