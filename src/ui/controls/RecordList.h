#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QString>
#include <optional>
#include <vector>

#include "ui/look/Theme.h"

namespace broomtide::ui {

/// One row of a list that is only read.
struct Record {
  QString symbol = {};  ///< in front, in the accent colour; empty for none
  QString title;
  QString warning = {};  ///< a word right after the title, which stands out; empty for none
  QString subtitle;
  QString note = {};                 ///< a third, quieter line
  QString trailing = {};             ///< at the end, above the amount
  QString amount = {};               ///< at the end, in a column of its own
  std::optional<double> share = {};  ///< of the largest amount, 0 to 1; shown as a bar
};

/// How much room each row of a list has.
struct RecordLines {
  int subtitle = 1;  ///< lines that a subtitle may take
  bool hasNote = false;
  bool hasAmount = false;
};

/// The records of a list, in their order.
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

/// Sets up a list whose rows are drawn on cards: no frame, scrolling by pixels, hovering, and no
/// selection of Qt's own.
void setUpCards(QAbstractItemView& list);

/// A list of records on a card. Its text can be copied row by row.
class RecordList final : public QListView {
  Q_OBJECT
 public:
  RecordList(const QString& label, std::vector<Record> records, RecordLines lines,
             QWidget* parent = nullptr);
};

}  // namespace broomtide::ui
