#pragma once

#include <QRectF>
#include <QString>
#include <QWidget>
#include <vector>

namespace broomtide::test {

/// A piece of text as it reaches the screen, after all shortening and wrapping.
struct DrawnText {
  QString text;
  QRectF place;  ///< the room that it takes, in the widget that drew it
};

/// What a visible widget draws by itself, without its children.
std::vector<DrawnText> drawnBy(QWidget& widget);

}  // namespace broomtide::test
