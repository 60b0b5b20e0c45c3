#include "ui/controls/RecordList.h"

#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "ui/look/DisplayText.h"
#include "ui/look/Drawing.h"
#include "ui/look/Symbols.h"

namespace broomtide::ui {
namespace {

// For screen readers and the clipboard.
QString accessibleText(const Record& record) {
  return display::unmarked(display::joined({record.title, record.warning, record.subtitle,
                                            record.note, record.trailing, record.amount}));
}

constexpr int amountColumn = 100;

// The geometry of a row, for measuring and for painting.
struct RecordLayout {
  int left, right, trailingLeft;
  drawing::RowLines lines;
  int height;
  QRect symbol, trailing, amount, bar;

  RecordLayout(const RecordLines& room, const drawing::RowFonts& fonts, const QRect& row,
               bool hasSymbol)
      : left(row.x() + drawing::rowEdge +
             (hasSymbol ? drawing::rowSymbolSide + drawing::rowGap : 0)),
        right(row.right() + 1 - drawing::rowEdge),
        trailingLeft(room.hasAmount ? right - amountColumn : right),
        lines(QPoint(left, row.y() + drawing::rowPadding),
              trailingLeft - left - (room.hasAmount ? drawing::rowGap : 0), fonts, room.subtitle),
        height((room.hasNote ? lines.note.bottom() + 1 : lines.subtitle.bottom() + 2) +
               drawing::rowPadding - row.y()),
        symbol(drawing::centred(row.x() + drawing::rowEdge, QRect(row.topLeft(), QSize(1, height)),
                                drawing::rowSymbolSide)),
        trailing(trailingLeft, lines.title.y(), amountColumn, lines.title.height()),
        amount(trailing.translated(0, trailing.height() + 1)),
        bar(trailingLeft, amount.bottom() + barHeight, amountColumn, barHeight) {}

 private:
  static constexpr int barHeight = 4;
};

void drawBar(QPainter& painter, const QRect& place, double share, const Theme& theme) {
  drawing::surface(painter, place, Theme::faint(theme.accent), {}, place.height() / 2);
  QRect part = place;
  part.setWidth(std::max(place.height(), static_cast<int>(place.width() * share)));
  drawing::surface(painter, part, theme.accent, {}, place.height() / 2);
}

class RecordDelegate final : public QStyledItemDelegate {
 public:
  RecordDelegate(RecordLines room, QObject* parent) : QStyledItemDelegate(parent), room_(room) {}

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    return {1, RecordLayout(room_, fonts_, QRect(), false).height};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const auto text = [&index](int role) { return index.data(role).toString(); };
    const Theme& theme = Theme::of(option.palette);
    const QString symbol = text(RecordModel::SymbolRole);
    const RecordLayout layout(room_, fonts_, option.rect, !symbol.isEmpty());
    const drawing::PlaceInCard place{.isFirst = index.row() == 0,
                                     .isLast = index.row() + 1 == index.model()->rowCount()};
    const bool isHovered = (option.state & QStyle::State_MouseOver) != 0;
    painter->save();
    drawing::cardSlice(*painter, option.rect, place, isHovered ? theme.cardHovered : theme.card,
                       theme.border, layout.lines.title.x());
    if (drawing::showsFocus(option))
      drawing::focusRing(*painter, option.rect, theme.accent, drawing::controlRadius);
    if (!symbol.isEmpty()) symbols::paint(*painter, symbol, theme.accent, layout.symbol);
    drawing::lineWithBadge(
        *painter, layout.lines.title, fonts_.title, theme.text, text(RecordModel::TitleRole),
        {.word = text(RecordModel::WarningRole), .font = fonts_.note, .colour = theme.usuallySafe});
    const QString subtitle = text(RecordModel::SubtitleRole);
    if (room_.subtitle > 1) {
      drawing::paragraph(*painter, layout.lines.subtitle, fonts_.subtitle, theme.secondary,
                         subtitle);
    } else {
      drawing::line(*painter, layout.lines.subtitle, fonts_.subtitle, theme.secondary, subtitle,
                    Qt::ElideMiddle);
    }
    if (room_.hasNote)
      drawing::line(*painter, layout.lines.note, fonts_.note, theme.tertiary,
                    text(RecordModel::NoteRole), Qt::ElideRight);
    if (room_.hasAmount) {
      drawing::line(*painter, layout.trailing, fonts_.subtitle, theme.secondary,
                    text(RecordModel::TrailingRole), Qt::ElideRight, Qt::AlignRight);
      drawing::line(*painter, layout.amount, fonts_.amount, theme.text,
                    text(RecordModel::AmountRole), Qt::ElideRight, Qt::AlignRight);
    }
    const QVariant share = index.data(RecordModel::ShareRole);
    if (share.isValid()) drawBar(*painter, layout.bar, share.toDouble(), theme);
    painter->restore();
  }

 private:
  const RecordLines room_;
  const drawing::RowFonts fonts_;
};

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
      return accessibleText(record);
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

void setUpCards(QAbstractItemView& list) {
  list.setFrameShape(QFrame::NoFrame);
  list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // the viewport keeps its width
  list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list.setSelectionMode(QAbstractItemView::NoSelection);
  list.viewport()->setBackgroundRole(QPalette::Window);
  list.viewport()->setAttribute(Qt::WA_Hover);
}

RecordList::RecordList(const QString& label, std::vector<Record> records, RecordLines lines,
                       QWidget* parent)
    : QListView(parent) {
  setAccessibleName(label);
  setUpCards(*this);
  setUniformItemSizes(true);
  setModel(new RecordModel(std::move(records), this));
  setItemDelegate(new RecordDelegate(lines, this));
}

}  // namespace broomtide::ui
