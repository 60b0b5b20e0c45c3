#pragma once

#include <QProxyStyle>

namespace broomtide::ui {

/// The widget style, over Qt's Fusion: controls are rounded and quiet, in the colours of the theme
/// of their palette, and show the focus by a ring (`drawing::showsFocus`).
class Style final : public QProxyStyle {
 public:
  Style();

  /// Replaces the palette of the desktop by that of the closer theme.
  void polish(QPalette& palette) override;
  using QProxyStyle::polish;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
};

}  // namespace broomtide::ui
