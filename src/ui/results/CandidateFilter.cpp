#include "ui/results/CandidateFilter.h"

#include <algorithm>

#include "ui/look/DisplayText.h"

namespace broomtide::ui {

CandidateFilter::CandidateFilter(const QString& text) {
  for (const QString& word : text.simplified().split(' ', Qt::SkipEmptyParts)) {
    words_.emplace_back(word, Qt::CaseInsensitive);
  }
}

bool CandidateFilter::picks(const ScanCandidate& candidate) const {
  if (isEmpty()) return true;
  const QString text =
      display::text(candidate.relativePath) + u'\n' + QString::fromStdString(candidate.category);
  return std::ranges::all_of(
      words_, [&text](const QStringMatcher& word) { return word.indexIn(text) >= 0; });
}

}  // namespace broomtide::ui
