#pragma once

#include <QFont>
#include <QStyledItemDelegate>

#include "ui/controls/RecordList.h"

namespace broomtide::ui {

/// Draws the rows of a list of records from the roles of its model.
class RecordDelegate final : public QStyledItemDelegate {
  Q_OBJECT
 public:
  RecordDelegate(RecordLines lines, QObject* parent);

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  struct Layout;

  const RecordLines lines_;
  const QFont titleFont_;
  const QFont subtitleFont_;
  const QFont noteFont_;
  const QFont amountFont_;
};

}  // namespace broomtide::ui
