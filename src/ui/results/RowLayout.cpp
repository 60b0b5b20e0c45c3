#include "ui/results/RowLayout.h"

#include <algorithm>

#include "ui/results/CandidateText.h"

namespace broomtide::ui {
namespace {

using drawing::centred;
using drawing::checkBoxSide;
using drawing::rowEdge;
using drawing::rowGap;
using drawing::rowPadding;
using drawing::rowSymbolSide;
constexpr int chevronSide = 14;
constexpr int minTrailingWidth = 112;
constexpr int badgePadding = 3;
constexpr int aboveSection = 14;

int widthFor(const QFont& font) {
  int result = minTrailingWidth;
  for (const SafetyLevel level : allSafetyLevels) {
    const drawing::Badge badge{.word = candidatetext::safety(level), .font = font, .colour = {}};
    result = std::max(result, drawing::widthOf(badge));
  }
  return result;
}

}  // namespace

ResultsFonts::ResultsFonts()
    : section(fontFor(TextStyle::headline)),
      badge(fontFor(TextStyle::smallBold)),
      trailingWidth(widthFor(badge)) {}

int RowLayout::textStart() { return rowEdge + checkBoxSide + rowGap + rowSymbolSide + rowGap; }

int RowLayout::height(ResultsRowKind kind, const ResultsFonts& fonts) {
  switch (kind) {
    case ResultsRowKind::section:
      return aboveSection + lineHeight(fonts.section) + rowPadding;
    case ResultsRowKind::candidate:
      return 2 * rowPadding + lineHeight(fonts.title) + lineHeight(fonts.subtitle) +
             lineHeight(fonts.note) + 2;
    case ResultsRowKind::issue:
      return rowPadding + lineHeight(fonts.subtitle) + lineHeight(fonts.note) + rowPadding;
    case ResultsRowKind::issuesHeading:
      return aboveSection + 2 * rowPadding + lineHeight(fonts.title);
    case ResultsRowKind::moreIssues:
    case ResultsRowKind::details:
      break;
  }
  return 2 * rowPadding + lineHeight(fonts.title);
}

RowLayout::RowLayout(ResultsRowKind kind, const QRect& row, const ResultsFonts& fonts) : card(row) {
  const int start = row.x() + textStart();
  const int end = row.right() + 1 - rowEdge;
  switch (kind) {
    case ResultsRowKind::section: {
      const int y = row.y() + aboveSection;
      name = QRect(row.x() + 2, y, row.width() / 2, lineHeight(fonts.section));
      note = QRect(row.x() + row.width() / 2, y, row.width() / 2 - 2, name.height());
      break;
    }
    case ResultsRowKind::candidate: {
      chevron = centred(end - chevronSide, row, chevronSide);
      const int trailing = chevron.x() - rowGap - fonts.trailingWidth;
      const int width = trailing - rowGap - start;
      checkBox = centred(row.x() + rowEdge, row, checkBoxSide);
      checkBoxHitArea =
          QRect(row.topLeft(), QSize(checkBox.right() + rowGap / 2 - row.x(), row.height()));
      symbol = centred(row.x() + rowEdge + checkBoxSide + rowGap, row, rowSymbolSide);
      const drawing::RowLines lines(QPoint(start, row.y() + rowPadding), width, fonts);
      name = lines.title;
      path = lines.subtitle;
      note = lines.note;
      badge = QRect(trailing, name.y(), fonts.trailingWidth,
                    lineHeight(fonts.badge) + 2 * badgePadding);
      size = QRect(trailing, note.bottom() - lineHeight(fonts.amount) + 1, fonts.trailingWidth,
                   lineHeight(fonts.amount));
      break;
    }
    case ResultsRowKind::issuesHeading:
      card.setTop(row.y() + aboveSection);
      symbol = centred(row.x() + rowEdge, card, checkBoxSide);
      chevron = centred(end - chevronSide, card, chevronSide);
      name = QRect(symbol.right() + rowGap, card.y() + rowPadding,
                   chevron.x() - symbol.right() - 2 * rowGap, lineHeight(fonts.title));
      break;
    case ResultsRowKind::issue:
      path = QRect(row.x() + rowEdge + checkBoxSide + rowGap, row.y() + rowPadding,
                   row.width() - 2 * rowEdge - checkBoxSide - rowGap, lineHeight(fonts.subtitle));
      note = QRect(path.x(), path.bottom() + 1, path.width(), lineHeight(fonts.note));
      break;
    case ResultsRowKind::moreIssues:
      path = QRect(row.x() + rowEdge + checkBoxSide + rowGap, row.y() + rowPadding,
                   row.width() - 2 * rowEdge, lineHeight(fonts.subtitle));
      break;
    case ResultsRowKind::details:
      break;
  }
}

}  // namespace broomtide::ui
