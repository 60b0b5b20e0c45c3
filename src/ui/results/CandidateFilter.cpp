#include "ui/results/CandidateFilter.h"

#include <QStringList>
#include <algorithm>

#include "core/Paths.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

bool isPlain(const QString& word) {
  return std::ranges::all_of(word, [](QChar letter) { return letter.unicode() < 0x80; });
}

// `word` is in lower case and not empty.
bool containsIgnoringCase(std::string_view text, std::string_view word) {
  const char first = word.front();
  const char capital = QChar(QLatin1Char(first)).toUpper().toLatin1();
  for (std::size_t at = 0; at + word.size() <= text.size(); ++at) {
    if (text[at] != first && text[at] != capital) continue;
    if (paths::equalIgnoringCase(text.substr(at, word.size()), word)) return true;
  }
  return false;
}

}  // namespace

CandidateFilter::Word::Word(const QString& text) : any(text, Qt::CaseInsensitive) {
  if (isPlain(text)) plain = text.toLower().toStdString();
}

bool CandidateFilter::Word::isIn(std::string_view text) const {
  if (plain.empty())
    return any.indexIn(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))) >= 0;
  return containsIgnoringCase(text, plain);
}

CandidateFilter::CandidateFilter(const QString& text) {
  for (const QString& word : text.simplified().split(' ', Qt::SkipEmptyParts)) {
    words_.emplace_back(word);
  }
}

bool CandidateFilter::picks(const ScanCandidate& candidate) const {
  return std::ranges::all_of(words_, [&](const Word& word) {
    return word.isIn(candidate.relativePath) || word.isIn(shownCategory(candidate.category));
  });
}

const std::string& CandidateFilter::shownCategory(std::string_view category) const {
  std::string& shown = shownCategories_[category];
  if (shown.empty()) shown = enginetext::title(category).toStdString();
  return shown;
}

}  // namespace broomtide::ui
