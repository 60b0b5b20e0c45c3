#pragma once

#include <QString>
#include <QStringMatcher>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/Records.h"
#include "core/SortOrder.h"

namespace broomtide::ui {

/// Matches candidates with every word of a text in their path or their translated category,
/// ignoring case.
class CandidateFilter {
 public:
  CandidateFilter() = default;
  explicit CandidateFilter(const QString& text);

  /// Whether it matches everything.
  bool isEmpty() const { return words_.empty(); }

  bool matches(const ScanCandidate& candidate) const;

 private:
  // Most words are ASCII, and then a path is searched without decoding it.
  struct Word {
    explicit Word(const QString& text);

    bool isIn(std::string_view text) const;

    std::string ascii;  // in lower case; empty for a word that is not ASCII
    QStringMatcher matcher;
  };

  const std::string& translatedCategory(std::string_view category) const;

  std::vector<Word> words_;
  mutable std::unordered_map<std::string_view, std::string> translatedCategories_;
};

/// What a row of the results list is.
enum class ResultsRowKind : std::uint8_t {
  section,        ///< the heading of a safety level
  candidate,      ///< one item
  details,        ///< the expanded details of the item above
  issuesHeading,  ///< how many items could not be read
  issue,          ///< one of them
  moreIssues,     ///< how many more there are
};

/// Whether a row can be expanded, to the details of a candidate or to the issues.
constexpr bool isExpandable(ResultsRowKind kind) {
  return kind == ResultsRowKind::candidate || kind == ResultsRowKind::issuesHeading;
}

/// One row of the results list.
struct ResultsRow {
  ResultsRowKind kind;
  std::uint32_t position;  ///< of the candidate or issue, the safety level, or how many more

  bool operator==(const ResultsRow&) const = default;
};

/// The rows of the results list, from the top: for each safety level that has candidates its
/// heading and them, sorted, with details below those that are expanded; then the issues.
class ResultsRows {
 public:
  /// REQUIRES: the candidates stay where they are while this object is in use.
  ResultsRows(std::span<const ScanCandidate> candidates, std::size_t issueCount);

  /// The candidates of a level that match the filter.
  struct Total {
    std::size_t count = 0;
    std::int64_t bytes = 0;
  };

  const std::vector<ResultsRow>& all() const { return rows_; }
  const Total& total(SafetyLevel level) const { return totals_[static_cast<std::size_t>(level)]; }
  bool isExpanded(const ResultsRow& row) const;
  bool isFiltered() const { return !filter_.isEmpty(); }

  /// How many candidates are selected and match the filter.
  std::size_t shownSelectedCount() const;

  /// Both arrange all rows anew; which are expanded stays.
  void sort(SortOrder order);
  void filter(CandidateFilter filter);

  /// Remembers whether a row is expanded, without inserting or removing those below it.
  /// REQUIRES: `isExpandable(row.kind)`.
  void setExpanded(const ResultsRow& row, bool isExpanded);

  /// The rows below an expanded row. REQUIRES: `isExpandable(row.kind)`.
  std::vector<ResultsRow> rowsBelow(const ResultsRow& row) const;

  void insert(std::size_t at, const std::vector<ResultsRow>& rows);
  void remove(std::size_t at, std::size_t count);

 private:
  void arrange();
  void append(const ResultsRow& row);

  std::span<const ScanCandidate> candidates_;
  std::size_t issueCount_;
  SortOrder order_ = SortOrder::size;
  CandidateFilter filter_;
  std::vector<std::uint32_t> sorted_;  // positions of candidates, by level and order_
  std::unordered_set<std::uint32_t> expandedCandidates_;
  bool areIssuesExpanded_ = false;
  std::vector<ResultsRow> rows_;
  std::array<Total, allSafetyLevels.size()> totals_{};
};

}  // namespace broomtide::ui
