#pragma once

#include <QStyledItemDelegate>

#include "ui/results/RowLayout.h"

namespace broomtide::ui {

/// Draws the rows of the results list from the roles of its model. A click on a tick box, or Space,
/// selects; a click elsewhere opens or closes.
class ResultsDelegate final : public QStyledItemDelegate {
  Q_OBJECT
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  const ResultsFonts& fonts() const { return fonts_; }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 private:
  const ResultsFonts fonts_;
};

}  // namespace broomtide::ui
