#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QString>
#include <optional>
#include <vector>

#include "ui/look/Theme.h"

namespace broomtide::ui {

/// One row of a read-only list.
struct Record {
  QString symbol = {};  ///< in front, in the accent colour; empty for none
  QString title;
  QString warning = {};  ///< a badge right after the title; empty for none
  QString subtitle;
  QString note = {};                 ///< a third, quieter line
  QString trailing = {};             ///< at the end, above the amount
  QString amount = {};               ///< at the end, in a column of its own
  std::optional<double> share = {};  ///< of the largest amount, 0 to 1; shown as a bar
};

/// The lines that every row of a list has room for, so that all have one height.
struct RecordLines {
  int subtitle = 1;  ///< lines that a subtitle may take
  bool hasNote = false;
  bool hasAmount = false;
};

/// The model of a `RecordList`. Its rows never change.
class RecordModel final : public QAbstractListModel {
  Q_OBJECT
 public:
  enum Role {
    SymbolRole = Qt::UserRole,
    TitleRole,
    WarningRole,
    SubtitleRole,
    NoteRole,
    TrailingRole,
    AmountRole,
    ShareRole,
  };

  RecordModel(std::vector<Record> records, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const std::vector<Record> records_;
};

/// Sets up a view whose delegate paints rows on cards: no frame, scrolling per pixel, hover events,
/// and no selection of its own.
void setUpCards(QAbstractItemView& list);

/// A read-only list of records on a card. Copying takes the whole text of the current row.
class RecordList final : public QListView {
  Q_OBJECT
 public:
  /// `label` is the accessible name.
  RecordList(const QString& label, std::vector<Record> records, RecordLines lines,
             QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
