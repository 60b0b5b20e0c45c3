#pragma once

#include "ui/look/Drawing.h"
#include "ui/results/ResultsRows.h"

namespace broomtide::ui {

/// The fonts of the results list, and what is as wide as they make it.
struct ResultsFonts : drawing::RowFonts {
  ResultsFonts();

  QFont section, badge;
  int trailingWidth;  ///< of badges and sizes
};

/// Where the parts of a row of the results list are; the same for measuring, drawing and clicking.
/// Parts that a kind of row does not have are empty.
struct RowLayout {
  QRect card;  ///< what the row shows of its card
  QRect checkBox;
  QRect checkBoxHitArea;  ///< where a click counts as one on the tick box
  QRect symbol;
  QRect name;
  QRect path;
  QRect note;
  QRect badge;  ///< as wide as it may be; it ends at the right
  QRect size;
  QRect chevron;

  RowLayout(ResultsRowKind kind, const QRect& row, const ResultsFonts& fonts);

  /// The height of a row in pixels; that of details depends on what they say and is not known here.
  static int height(ResultsRowKind kind, const ResultsFonts& fonts);

  /// Where texts begin, from the left edge of a row.
  static int textStart();
};

}  // namespace broomtide::ui
