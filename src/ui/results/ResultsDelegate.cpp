#include "ui/results/ResultsDelegate.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "ui/look/Drawing.h"
#include "ui/look/Symbols.h"
#include "ui/look/Theme.h"
#include "ui/results/ResultsModel.h"

namespace broomtide::ui {
namespace {

ResultsRowKind kindOf(const QModelIndex& index) {
  return static_cast<ResultsRowKind>(index.data(KindRole).toInt());
}

// Lives for one call of paint().
class RowPainter {
 public:
  RowPainter(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
             const ResultsFonts& fonts)
      : painter_(painter),
        option_(option),
        index_(index),
        fonts_(fonts),
        theme_(Theme::of(option.palette)),
        tone_(theme_.colour(static_cast<Tone>(index.data(ToneRole).toInt()))),
        layout_(kindOf(index), option.rect, fonts) {}

  void paint() {
    const ResultsRowKind kind = kindOf(index_);
    if (kind != ResultsRowKind::section) paintCard(kind);
    switch (kind) {
      case ResultsRowKind::section:
        paintSection();
        break;
      case ResultsRowKind::candidate:
        paintCandidate();
        break;
      case ResultsRowKind::issuesHeading:
        symbols::paint(painter_, text(SymbolRole), tone_, layout_.symbol);
        drawing::line(painter_, layout_.name, fonts_.title, tone_, text(Qt::DisplayRole),
                      Qt::ElideRight);
        paintChevron();
        break;
      case ResultsRowKind::issue:
      case ResultsRowKind::moreIssues:
        drawing::line(painter_, layout_.path, fonts_.subtitle, theme_.text, text(Qt::DisplayRole),
                      Qt::ElideMiddle);
        drawing::line(painter_, layout_.note, fonts_.note, theme_.secondary, text(NoteRole),
                      Qt::ElideRight);
        break;
      case ResultsRowKind::details:
        break;
    }
  }

 private:
  QString text(int role) const { return index_.data(role).toString(); }

  void paintCard(ResultsRowKind kind) {
    const bool isHovered = isExpandable(kind) && (option_.state & QStyle::State_MouseOver) != 0;
    const bool isExpanded = index_.data(ExpandedRole).toBool();
    const bool isIssue = kind == ResultsRowKind::issue || kind == ResultsRowKind::moreIssues;
    const int textLeft = isIssue ? layout_.path.x() : layout_.card.x() + RowLayout::textStart();
    drawing::PlaceInCard place{.isFirst = index_.data(FirstRole).toBool(),
                               .isLast = index_.data(LastRole).toBool()};
    drawing::cardSlice(painter_, layout_.card, place, isHovered ? theme_.cardHovered : theme_.card,
                       theme_.border, isExpanded ? layout_.card.right() : textLeft);
    if (drawing::showsFocus(option_))
      drawing::focusRing(painter_, layout_.card, theme_.accent, drawing::controlRadius);
  }

  void paintSection() {
    drawing::line(painter_, layout_.name, fonts_.section, tone_, text(Qt::DisplayRole),
                  Qt::ElideRight);
    drawing::line(painter_, layout_.note, fonts_.subtitle, theme_.secondary, text(NoteRole),
                  Qt::ElideRight, Qt::AlignRight);
  }

  void paintCandidate() {
    QStyle::State tick = option_.state & (QStyle::State_Enabled | QStyle::State_MouseOver);
    if (index_.data(Qt::CheckStateRole).toInt() == Qt::Checked) tick |= QStyle::State_On;
    drawing::checkBox(painter_, layout_.checkBox, tick, option_.palette);
    symbols::paint(painter_, text(SymbolRole), tone_, layout_.symbol);
    drawing::lineWithBadge(
        painter_, layout_.name, fonts_.title, theme_.text, text(Qt::DisplayRole),
        {.word = text(WarningRole), .font = fonts_.note, .colour = theme_.usuallySafe});
    drawing::line(painter_, layout_.path, fonts_.subtitle, theme_.secondary, text(PathRole),
                  Qt::ElideMiddle);
    drawing::line(painter_, layout_.note, fonts_.note, theme_.tertiary, text(NoteRole),
                  Qt::ElideRight);
    paintBadge();
    drawing::line(painter_, layout_.size, fonts_.amount, theme_.text, text(SizeRole),
                  Qt::ElideRight, Qt::AlignRight);
    paintChevron();
  }

  void paintBadge() {
    const drawing::Badge level{.word = text(BadgeRole), .font = fonts_.badge, .colour = tone_};
    QRect place = layout_.badge;
    place.setLeft(place.right() + 1 - std::min(drawing::widthOf(level), place.width()));
    drawing::capsule(painter_, place, level);
  }

  void paintChevron() {
    const bool isExpanded = index_.data(ExpandedRole).toBool();
    symbols::paint(painter_,
                   isExpanded ? QStringLiteral("chevron.down") : QStringLiteral("chevron.right"),
                   theme_.tertiary, layout_.chevron);
  }

  QPainter& painter_;
  const QStyleOptionViewItem& option_;
  const QModelIndex& index_;
  const ResultsFonts& fonts_;
  const Theme& theme_;
  const QColor tone_;
  const RowLayout layout_;
};

}  // namespace

QSize ResultsDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex& index) const {
  return {1, RowLayout::height(kindOf(index), fonts_)};
}

void ResultsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  painter->save();
  RowPainter(*painter, option, index, fonts_).paint();
  painter->restore();
}

bool ResultsDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto toggleCheck = [&] {
    const bool isChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model->setData(index, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
  };
  const auto toggleExpanded = [&] {
    return model->setData(index, !index.data(ExpandedRole).toBool(), ExpandedRole);
  };
  const bool canCheck = (index.flags() & Qt::ItemIsUserCheckable) != 0;
  if (event->type() == QEvent::KeyPress) {
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space) return false;
    return canCheck ? toggleCheck() : toggleExpanded();
  }
  if (event->type() != QEvent::MouseButtonRelease) return false;
  const auto* click = static_cast<QMouseEvent*>(event);
  if (click->button() != Qt::LeftButton) return false;
  const RowLayout layout(kindOf(index), option.rect, fonts_);
  return canCheck && layout.checkBoxHitArea.contains(click->position().toPoint())
             ? toggleCheck()
             : toggleExpanded();
}

}  // namespace broomtide::ui
