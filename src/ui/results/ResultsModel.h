#pragma once

#include <QAbstractTableModel>
#include <memory>

#include "app/AppModel.h"
#include "ui/results/ResultsRows.h"

namespace broomtide::ui {

/// The roles of the results list besides Qt's own. `Qt::CheckStateRole` is the selection of a
/// candidate.
enum ResultsRole {
  KindRole = Qt::UserRole,  ///< a `ResultsRowKind`
  PathRole,                 ///< the second line
  NoteRole,                 ///< the third line, the message of an issue, the total of a section
  SymbolRole,               ///< the name of an icon
  ToneRole,                 ///< a `Tone`, for the icon and the badge
  BadgeRole,                ///< the safety level
  WarningRole,              ///< `display::warning` of a candidate
  SizeRole,                 ///< the size of a candidate, as people read it
  ExpandedRole,             ///< whether the rows below are shown; can be set
  FirstRole,                ///< whether a card begins with this row
  LastRole,                 ///< whether a card ends with this row
};

/// The table model of the results list, of one column, over the candidates and issues of the app
/// model, which must outlive it.
class ResultsModel final : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ResultsModel(AppModel& model, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// Sets `Qt::CheckStateRole` through the app model, or expands and collapses (`ExpandedRole`).
  /// Returns false for other roles and rows.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  /// Both reset the model; which rows are expanded stays.
  void setSortOrder(SortOrder order);
  void setFilter(const QString& text);

  /// How many of `selectedCount` selected candidates the filter hides.
  std::size_t hiddenSelectedCount(std::size_t selectedCount) const {
    return rows_.isFiltered() ? selectedCount - rows_.shownSelectedCount() : 0;
  }

  const ResultsRow& row(int number) const { return rows_.all()[static_cast<std::size_t>(number)]; }

  /// The number of this row, -1 when it is not shown. Linear in the rows.
  int numberOf(const ResultsRow& row) const;

  /// Whether any candidate matches the filter.
  bool showsCandidates() const { return rowCount() > 0 && row(0).kind == ResultsRowKind::section; }

  /// The candidate of a row, null for a row without one.
  const ScanCandidate* candidate(const QModelIndex& index) const;

 private:
  void followCandidates();
  void setExpanded(int number, bool isExpanded);
  QVariant sectionData(SafetyLevel level, int role) const;
  QVariant candidateData(const ResultsRow& row, int role) const;
  QVariant issueData(const ResultsRow& row, int role) const;
  bool isFirst(int number) const;
  bool isLast(int number) const;

  AppModel& model_;
  std::span<const ScanCandidate> shown_;  // the candidates that rows_ refers to
  ResultsRows rows_;
  std::shared_ptr<void> observation_;
};

}  // namespace broomtide::ui
