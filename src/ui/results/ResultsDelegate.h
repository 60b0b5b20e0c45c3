#pragma once

#include <QStyledItemDelegate>

#include "ui/results/RowLayout.h"

namespace broomtide::ui {

/// The delegate of the results list. It paints rows from the roles of the model, and sets two of
/// them: a click into the hit area of a check box toggles `Qt::CheckStateRole`, another click
/// `ExpandedRole`. Space does the first, or the second in rows without a check box.
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
