#pragma once

#include <QIcon>
#include <QString>

QT_FORWARD_DECLARE_CLASS(QPainter)

/// The named icons of the window: the SVG files of src/ui/icons, in a colour chosen by the caller.
namespace broomtide::ui::symbols {

/// A symbol as an icon, rendered for each size and device pixel ratio.
QIcon icon(const QString& name, const QColor& colour);

/// Paints a symbol into a square; the pixmaps are cached. An unknown name paints nothing.
void paint(QPainter& painter, const QString& name, const QColor& colour, const QRect& square);

/// The logo of the application.
QIcon brandMark();

}  // namespace broomtide::ui::symbols
