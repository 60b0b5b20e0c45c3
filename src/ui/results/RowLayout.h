#pragma once

#include "ui/look/Drawing.h"
#include "ui/results/ResultsRows.h"

namespace broomtide::ui {

/// The fonts of the results list, and the width that depends on them.
struct ResultsFonts : drawing::RowFonts {
  ResultsFonts();

  QFont section, badge;
  int trailingWidth;  ///< of the column with badges and sizes, in pixels
};

/// The geometry of a row of the results list, for measuring, painting and hit tests. Parts that a
/// kind of row does not have are empty rectangles.
struct RowLayout {
  QRect card;  ///< the slice of the card behind the row
  QRect checkBox;
  QRect checkBoxHitArea;  ///< the check box, and around it up to the edges of the row
  QRect symbol;
  QRect name;
  QRect path;
  QRect note;
  QRect badge;  ///< as wide as it may be, aligned to the right
  QRect size;
  QRect chevron;

  RowLayout(ResultsRowKind kind, const QRect& row, const ResultsFonts& fonts);

  /// The height of a row in pixels. That of details is not known here: it depends on their widget.
  static int height(ResultsRowKind kind, const ResultsFonts& fonts);

  /// The x of texts, from the left edge of a row.
  static int textStart();
};

}  // namespace broomtide::ui
