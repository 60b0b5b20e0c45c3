#include "ui/controls/RecordDelegate.h"

#include <QPainter>

#include "ui/look/Drawing.h"
#include "ui/look/Symbols.h"
#include "ui/look/Typography.h"

namespace broomtide::ui {
namespace {

constexpr int edge = 16;
constexpr int gap = 12;
constexpr int above = 10;
constexpr int symbolSide = 22;
constexpr int amountColumn = 100;

void drawBar(QPainter& painter, const QRect& place, double share, const Theme& theme) {
  drawing::surface(painter, place, Theme::faint(theme.accent), {}, place.height() / 2);
  QRect part = place;
  part.setWidth(std::max(place.height(), static_cast<int>(place.width() * share)));
  drawing::surface(painter, part, theme.accent, {}, place.height() / 2);
}

}  // namespace

// Where the parts of a row are; the same for measuring and for drawing.
struct RecordDelegate::Layout {
  QRect symbol, title, subtitle, note, trailing, amount, bar;
  int height = 0;

  Layout(const RecordDelegate& delegate, const QRect& row, bool hasSymbol) {
    const int left = row.x() + edge + (hasSymbol ? symbolSide + gap : 0);
    const int right = row.right() + 1 - edge;
    const int trailingLeft = delegate.lines_.hasAmount ? right - amountColumn : right;
    const int width = trailingLeft - left - (delegate.lines_.hasAmount ? gap : 0);
    int y = row.y() + above;
    title = QRect(left, y, width, lineHeight(delegate.titleFont_));
    y += title.height() + 1;
    subtitle = QRect(left, y, width, delegate.lines_.subtitle * lineHeight(delegate.subtitleFont_));
    y += subtitle.height() + 1;
    if (delegate.lines_.hasNote) {
      note = QRect(left, y, width, lineHeight(delegate.noteFont_));
      y += note.height();
    }
    height = y + above - row.y();
    trailing = QRect(trailingLeft, title.y(), amountColumn, title.height());
    amount = QRect(trailingLeft, title.bottom() + 2, amountColumn, title.height());
    constexpr int barHeight = 4;
    bar = QRect(trailingLeft, amount.bottom() + barHeight, amountColumn, barHeight);
    symbol = QRect(row.x() + edge, row.y() + (height - symbolSide) / 2, symbolSide, symbolSide);
  }
};

RecordDelegate::RecordDelegate(RecordLines lines, QObject* parent)
    : QStyledItemDelegate(parent),
      lines_(lines),
      titleFont_(fontFor(TextStyle::medium)),
      subtitleFont_(fontFor(TextStyle::small)),
      noteFont_(fontFor(TextStyle::smallest)),
      amountFont_(fontFor(TextStyle::monospaced)) {}

QSize RecordDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {1, Layout(*this, QRect(), false).height};
}

void RecordDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  const auto text = [&index](int role) { return index.data(role).toString(); };
  const Theme& theme = Theme::of(option.palette);
  const QString symbol = text(RecordModel::SymbolRole);
  const Layout layout(*this, option.rect, !symbol.isEmpty());
  const drawing::PlaceInCard place{.isFirst = index.row() == 0,
                                   .isLast = index.row() + 1 == index.model()->rowCount()};
  const bool isHovered = (option.state & QStyle::State_MouseOver) != 0;
  painter->save();
  drawing::cardSlice(*painter, option.rect, place, isHovered ? theme.cardHovered : theme.card,
                     theme.border, layout.title.x());
  if (drawing::showsFocus(option))
    drawing::focusRing(*painter, option.rect, theme.accent, drawing::controlRadius);
  if (!symbol.isEmpty()) symbols::paint(*painter, symbol, theme.accent, layout.symbol);
  drawing::markedLine(
      *painter, layout.title, titleFont_, theme.text, text(RecordModel::TitleRole),
      {.word = text(RecordModel::WarningRole), .font = noteFont_, .colour = theme.usuallySafe});
  const QString subtitle = text(RecordModel::SubtitleRole);
  if (lines_.subtitle > 1) {
    drawing::paragraph(*painter, layout.subtitle, subtitleFont_, theme.secondary, subtitle);
  } else {
    drawing::line(*painter, layout.subtitle, subtitleFont_, theme.secondary, subtitle,
                  Qt::ElideMiddle);
  }
  drawing::line(*painter, layout.note, noteFont_, theme.tertiary, text(RecordModel::NoteRole),
                Qt::ElideRight);
  if (lines_.hasAmount) {
    drawing::line(*painter, layout.trailing, subtitleFont_, theme.secondary,
                  text(RecordModel::TrailingRole), Qt::ElideRight, Qt::AlignRight);
    drawing::line(*painter, layout.amount, amountFont_, theme.text, text(RecordModel::AmountRole),
                  Qt::ElideRight, Qt::AlignRight);
  }
  const QVariant share = index.data(RecordModel::ShareRole);
  if (share.isValid()) drawBar(*painter, layout.bar, share.toDouble(), theme);
  painter->restore();
}

}  // namespace broomtide::ui
