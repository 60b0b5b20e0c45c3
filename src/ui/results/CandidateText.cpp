#include "ui/results/CandidateText.h"

#include <QCoreApplication>
#include <QStringList>
#include <string_view>

#include "ui/look/DisplayText.h"

namespace broomtide::ui::candidatetext {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("CandidateText", text); }

QString fixed(std::string_view title) {
  return QCoreApplication::translate("Titles", std::string(title).c_str());
}

QString dateOf(const ScanCandidate& candidate) {
  return display::date(candidate.modificationDate, tr("Unknown date"));
}

}  // namespace

QString safety(SafetyLevel level) { return fixed(title(level)); }

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
  return display::joined({fixed(candidate.category), fixed(title(candidate.confidence)),
                          fixed(title(candidate.gitStatus)), dateOf(candidate)});
}

QString sentence(const ScanCandidate& candidate, bool areDetailsShown) {
  QStringList parts{display::name(candidate.url),
                    display::warning(candidate.relativePath),
                    fixed(candidate.category),
                    safety(candidate.safety),
                    display::size(candidate.size),
                    candidate.isSelected ? tr("selected") : tr("not selected"),
                    fixed(title(candidate.confidence)),
                    fixed(title(candidate.gitStatus)),
                    dateOf(candidate),
                    display::text(candidate.relativePath),
                    areDetailsShown ? tr("details shown") : tr("details hidden")};
  parts.removeAll(QString());
  return display::unmarked(parts.join(QStringLiteral(", ")));
}

QString details(const ScanCandidate& candidate) {
  QStringList lines{display::text(candidate.explanation)};
  if (candidate.projectRoot) lines << tr("Project: %1").arg(display::name(*candidate.projectRoot));
  for (const std::string& reason : candidate.evidence.lines()) lines << display::text(reason);
  if (candidate.regenerationCommand)
    lines << tr("How to regenerate") + ": " + display::text(*candidate.regenerationCommand);
  return display::unmarked(lines.join(u'\n'));
}

}  // namespace broomtide::ui::candidatetext
