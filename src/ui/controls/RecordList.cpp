#include "ui/controls/RecordList.h"

#include <utility>

#include "ui/controls/RecordDelegate.h"
#include "ui/look/DisplayText.h"

namespace broomtide::ui {
namespace {

// All that a row says.
QString sentence(const Record& record) {
  return display::unmarked(display::joined({record.title, record.warning, record.subtitle,
                                            record.note, record.trailing, record.amount}));
}

}  // namespace

RecordModel::RecordModel(std::vector<Record> records, QObject* parent)
    : QAbstractListModel(parent), records_(std::move(records)) {}

int RecordModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(records_.size());
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Record& record = records_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
      return sentence(record);
    case SymbolRole:
      return record.symbol;
    case TitleRole:
      return record.title;
    case WarningRole:
      return record.warning;
    case SubtitleRole:
      return record.subtitle;
    case NoteRole:
      return record.note;
    case TrailingRole:
      return record.trailing;
    case AmountRole:
      return record.amount;
    case ShareRole:
      return record.share ? QVariant(*record.share) : QVariant();
    default:
      return {};
  }
}

RecordList::RecordList(const QString& label, std::vector<Record> records, RecordLines lines,
                       QWidget* parent)
    : QListView(parent) {
  setAccessibleName(label);
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(true);
  setVerticalScrollMode(ScrollPerPixel);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // its room is there in any case
  setSelectionMode(NoSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setBackgroundRole(QPalette::Window);
  viewport()->setAttribute(Qt::WA_Hover);
  setModel(new RecordModel(std::move(records), this));
  setItemDelegate(new RecordDelegate(lines, this));
}

}  // namespace broomtide::ui
