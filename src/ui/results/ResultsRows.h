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

/// Picks the candidates that hold every word of a text in their path or in their category as it is
/// shown, upper and lower case alike.
class CandidateFilter {
 public:
  CandidateFilter() = default;
  explicit CandidateFilter(const QString& text);

  /// Whether it picks everything.
  bool isEmpty() const { return words_.empty(); }

  bool matches(const ScanCandidate& candidate) const;

 private:
  // Most words are plain, and then the bytes of a path need not be decoded to be searched.
  struct Word {
    explicit Word(const QString& text);

    bool isIn(std::string_view text) const;

    std::string ascii;  // in lower case; empty for a word with other letters than ASCII ones
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
  details,        ///< what there is to know about the item above
  issuesHeading,  ///< how many items could not be read
  issue,          ///< one of them
  moreIssues,     ///< how many more there are
};

/// Whether a row can be opened: a candidate has details, the heading of the issues has them.
constexpr bool isExpandable(ResultsRowKind kind) {
  return kind == ResultsRowKind::candidate || kind == ResultsRowKind::issuesHeading;
}

/// One row of the results list.
struct ResultsRow {
  ResultsRowKind kind;
  std::uint32_t position;  ///< of the candidate, the issue or the safety level

  bool operator==(const ResultsRow&) const = default;
};

/// Which rows the results list has, from the top: for each safety level that has candidates its
/// heading and them, sorted, with details below those that are open; then the issues. Filtering
/// and sorting change the order of rows and nothing else.
class ResultsRows {
 public:
  /// Rows for these candidates, which must stay where they are, and this many issues.
  ResultsRows(std::span<const ScanCandidate> candidates, std::size_t issueCount);

  /// What the candidates of a level that are shown come to.
  struct Total {
    std::size_t count = 0;
    std::int64_t bytes = 0;
  };

  const std::vector<ResultsRow>& all() const { return rows_; }
  const Total& total(SafetyLevel level) const { return totals_[static_cast<std::size_t>(level)]; }
  bool isExpanded(const ResultsRow& row) const;
  bool isFiltered() const { return !filter_.isEmpty(); }

  /// How many of the candidates that are shown are selected.
  std::size_t shownSelectedCount() const;

  void sort(SortOrder order);
  void filter(CandidateFilter filter);

  /// Notes that a candidate or the issues are open or not, without adding or removing rows.
  void setExpanded(const ResultsRow& row, bool isExpanded);

  /// The rows that belong to an open row, in their order.
  std::vector<ResultsRow> rowsBelow(const ResultsRow& row) const;

  /// Puts rows in or takes them out.
  void insert(std::size_t at, const std::vector<ResultsRow>& rows);
  void remove(std::size_t at, std::size_t count);

 private:
  void arrange();
  void append(const ResultsRow& row);

  std::span<const ScanCandidate> candidates_;
  std::size_t issueCount_;
  SortOrder order_ = SortOrder::size;
  CandidateFilter filter_;
  std::vector<std::uint32_t> sorted_;  // positions of candidates, by level and then in order
  std::unordered_set<std::uint32_t> expandedCandidates_;
  bool areIssuesExpanded_ = false;
  std::vector<ResultsRow> rows_;
  std::array<Total, allSafetyLevels.size()> totals_{};
};

}  // namespace broomtide::ui
