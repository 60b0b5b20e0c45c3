#include "ui/results/RowLayout.h"

#include <algorithm>

#include "ui/look/Drawing.h"
#include "ui/look/Typography.h"
#include "ui/results/CandidateText.h"

namespace broomtide::ui {
namespace {

constexpr int edge = 16;
constexpr int gap = 12;
constexpr int above = 10;
constexpr int tickSide = 18;
constexpr int symbolSide = 22;
constexpr int chevronSide = 14;
constexpr int leastTrailing = 112;
constexpr int badgePadding = 3;
constexpr int aboveSection = 14;

QRect centred(int x, const QRect& row, int side) {
  return {x, row.y() + (row.height() - side) / 2, side, side};
}

int widthFor(const QFont& badge) {
  int result = leastTrailing;
  for (const SafetyLevel level : allSafetyLevels) {
    const drawing::Mark mark{.word = candidatetext::safety(level), .font = badge, .colour = {}};
    result = std::max(result, drawing::widthOf(mark));
  }
  return result;
}

}  // namespace

RowFonts::RowFonts()
    : section(fontFor(TextStyle::headline)),
      name(fontFor(TextStyle::medium)),
      path(fontFor(TextStyle::small)),
      note(fontFor(TextStyle::smallest)),
      badge(fontFor(TextStyle::smallBold)),
      size(fontFor(TextStyle::monospaced)),
      trailingWidth(widthFor(badge)) {}

int RowLayout::textStart() { return edge + tickSide + gap + symbolSide + gap; }

int RowLayout::height(ResultsRowKind kind, const RowFonts& fonts) {
  switch (kind) {
    case ResultsRowKind::section:
      return aboveSection + lineHeight(fonts.section) + above;
    case ResultsRowKind::candidate:
      return 2 * above + lineHeight(fonts.name) + lineHeight(fonts.path) + lineHeight(fonts.note) +
             2;
    case ResultsRowKind::issue:
      return above + lineHeight(fonts.path) + lineHeight(fonts.note) + above;
    case ResultsRowKind::issuesHeading:
      return aboveSection + 2 * above + lineHeight(fonts.name);
    case ResultsRowKind::moreIssues:
    case ResultsRowKind::details:
      break;
  }
  return 2 * above + lineHeight(fonts.name);
}

RowLayout::RowLayout(ResultsRowKind kind, const QRect& row, const RowFonts& fonts) : card(row) {
  const int start = row.x() + textStart();
  const int end = row.right() + 1 - edge;
  switch (kind) {
    case ResultsRowKind::section: {
      const int y = row.y() + aboveSection;
      name = QRect(row.x() + 2, y, row.width() / 2, lineHeight(fonts.section));
      note = QRect(row.x() + row.width() / 2, y, row.width() / 2 - 2, name.height());
      break;
    }
    case ResultsRowKind::candidate: {
      chevron = centred(end - chevronSide, row, chevronSide);
      const int trailing = chevron.x() - gap - fonts.trailingWidth;
      const int width = trailing - gap - start;
      tickBox = centred(row.x() + edge, row, tickSide);
      tickArea = QRect(row.topLeft(), QSize(tickBox.right() + gap / 2 - row.x(), row.height()));
      symbol = centred(row.x() + edge + tickSide + gap, row, symbolSide);
      name = QRect(start, row.y() + above, width, lineHeight(fonts.name));
      path = QRect(start, name.bottom() + 2, width, lineHeight(fonts.path));
      note = QRect(start, path.bottom() + 2, width, lineHeight(fonts.note));
      badge = QRect(trailing, name.y(), fonts.trailingWidth,
                    lineHeight(fonts.badge) + 2 * badgePadding);
      size = QRect(trailing, note.bottom() - lineHeight(fonts.size) + 1, fonts.trailingWidth,
                   lineHeight(fonts.size));
      break;
    }
    case ResultsRowKind::issuesHeading:
      card.setTop(row.y() + aboveSection);
      symbol = centred(row.x() + edge, card, tickSide);
      chevron = centred(end - chevronSide, card, chevronSide);
      name = QRect(symbol.right() + gap, card.y() + above, chevron.x() - symbol.right() - 2 * gap,
                   lineHeight(fonts.name));
      break;
    case ResultsRowKind::issue:
      path = QRect(row.x() + edge + tickSide + gap, row.y() + above,
                   row.width() - 2 * edge - tickSide - gap, lineHeight(fonts.path));
      note = QRect(path.x(), path.bottom() + 1, path.width(), lineHeight(fonts.note));
      break;
    case ResultsRowKind::moreIssues:
      path = QRect(row.x() + edge + tickSide + gap, row.y() + above, row.width() - 2 * edge,
                   lineHeight(fonts.path));
      break;
    case ResultsRowKind::details:
      break;
  }
}

}  // namespace broomtide::ui
