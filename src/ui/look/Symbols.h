#pragma once

#include <QIcon>
#include <QString>

QT_FORWARD_DECLARE_CLASS(QPainter)

/// The named icons of the window: drawings in one colour, which is chosen when they are shown.
namespace broomtide::ui::symbols {

/// A symbol as an icon in one colour, sharp at every size and pixel ratio.
QIcon icon(const QString& name, const QColor& colour);

/// Paints a symbol into a square.
void paint(QPainter& painter, const QString& name, const QColor& colour, const QRect& square);

/// The mark of the application as an icon.
QIcon brandMark();

}  // namespace broomtide::ui::symbols
