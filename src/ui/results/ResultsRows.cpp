#include "ui/results/ResultsRows.h"

#include <QStringList>
#include <algorithm>
#include <iterator>
#include <utility>

#include "core/Paths.h"
#include "ui/look/EngineText.h"

namespace broomtide::ui {
namespace {

constexpr std::size_t maxIssues = 10;  // more are only counted

bool isAscii(const QString& word) {
  return std::ranges::all_of(word, [](QChar letter) { return letter.unicode() < 0x80; });
}

// REQUIRES: `word` is ASCII in lower case and not empty.
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

CandidateFilter::Word::Word(const QString& text) : matcher(text, Qt::CaseInsensitive) {
  if (isAscii(text)) ascii = text.toLower().toStdString();
}

bool CandidateFilter::Word::isIn(std::string_view text) const {
  if (ascii.empty())
    return matcher.indexIn(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))) >=
           0;
  return containsIgnoringCase(text, ascii);
}

CandidateFilter::CandidateFilter(const QString& text) {
  for (const QString& word : text.simplified().split(' ', Qt::SkipEmptyParts)) {
    words_.emplace_back(word);
  }
}

bool CandidateFilter::matches(const ScanCandidate& candidate) const {
  return std::ranges::all_of(words_, [&](const Word& word) {
    return word.isIn(candidate.relativePath) || word.isIn(translatedCategory(candidate.category));
  });
}

const std::string& CandidateFilter::translatedCategory(std::string_view category) const {
  std::string& shown = translatedCategories_[category];
  if (shown.empty()) shown = enginetext::title(category).toStdString();
  return shown;
}

ResultsRows::ResultsRows(std::span<const ScanCandidate> candidates, std::size_t issueCount)
    : candidates_(candidates), issueCount_(issueCount) {
  sort(order_);
}

void ResultsRows::sort(SortOrder order) {
  order_ = order;
  CandidateRows rows = rowsOf(candidates_);
  sortRows(rows, order_);
  sorted_.clear();
  sorted_.reserve(rows.size());
  for (const ScanCandidate* candidate : rows) {
    sorted_.push_back(static_cast<std::uint32_t>(candidate - candidates_.data()));
  }
  arrange();
}

void ResultsRows::filter(CandidateFilter filter) {
  filter_ = std::move(filter);
  arrange();
}

void ResultsRows::arrange() {
  rows_.clear();
  rows_.reserve(sorted_.size() + allSafetyLevels.size() + 1);
  totals_ = {};
  for (const std::uint32_t position : sorted_) {
    const ScanCandidate& candidate = candidates_[position];
    if (!filter_.matches(candidate)) continue;
    Total& total = totals_[static_cast<std::size_t>(candidate.safety)];
    if (total.count == 0)
      append({ResultsRowKind::section, static_cast<std::uint32_t>(candidate.safety)});
    total.count += 1;
    total.bytes += candidate.size;
    append({ResultsRowKind::candidate, position});
  }
  if (issueCount_ > 0) append({ResultsRowKind::issuesHeading, 0});
}

void ResultsRows::append(const ResultsRow& row) {
  rows_.push_back(row);
  if (isExpanded(row)) insert(rows_.size(), rowsBelow(row));
}

bool ResultsRows::isExpanded(const ResultsRow& row) const {
  switch (row.kind) {
    case ResultsRowKind::candidate:
      return expandedCandidates_.contains(row.position);
    case ResultsRowKind::issuesHeading:
      return areIssuesExpanded_;
    case ResultsRowKind::section:
    case ResultsRowKind::details:
    case ResultsRowKind::issue:
    case ResultsRowKind::moreIssues:
      break;
  }
  return false;
}

std::size_t ResultsRows::shownSelectedCount() const {
  return static_cast<std::size_t>(std::ranges::count_if(rows_, [this](const ResultsRow& row) {
    return row.kind == ResultsRowKind::candidate && candidates_[row.position].isSelected;
  }));
}

void ResultsRows::setExpanded(const ResultsRow& row, bool isExpanded) {
  if (row.kind == ResultsRowKind::issuesHeading) {
    areIssuesExpanded_ = isExpanded;
  } else if (isExpanded) {
    expandedCandidates_.insert(row.position);
  } else {
    expandedCandidates_.erase(row.position);
  }
}

std::vector<ResultsRow> ResultsRows::rowsBelow(const ResultsRow& row) const {
  if (row.kind == ResultsRowKind::candidate) return {{ResultsRowKind::details, row.position}};
  std::vector<ResultsRow> rows;
  const std::size_t shown = std::min(issueCount_, maxIssues);
  for (std::uint32_t position = 0; position < shown; ++position) {
    rows.push_back({ResultsRowKind::issue, position});
  }
  if (issueCount_ > shown) {
    rows.push_back({ResultsRowKind::moreIssues, static_cast<std::uint32_t>(issueCount_ - shown)});
  }
  return rows;
}

void ResultsRows::insert(std::size_t at, const std::vector<ResultsRow>& rows) {
  rows_.insert(std::next(rows_.begin(), static_cast<std::ptrdiff_t>(at)), rows.begin(), rows.end());
}

void ResultsRows::remove(std::size_t at, std::size_t count) {
  const auto first = std::next(rows_.begin(), static_cast<std::ptrdiff_t>(at));
  rows_.erase(first, std::next(first, static_cast<std::ptrdiff_t>(count)));
}

}  // namespace broomtide::ui
