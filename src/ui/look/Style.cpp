#include "ui/look/Style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "ui/look/Drawing.h"
#include "ui/look/Symbols.h"
#include "ui/look/Theme.h"

namespace broomtide::ui {
namespace {

using drawing::scrollBarExtent;
constexpr int controlHeight = 32;

bool has(const QStyleOption& option, QStyle::StateFlag flag) { return (option.state & flag) != 0; }

bool isProminent(const QStyleOptionButton& button) {
  return (button.features & QStyleOptionButton::DefaultButton) != 0;
}

void drawBevel(const QStyleOptionButton& button, QPainter& painter) {
  const Theme& theme = Theme::of(button.palette);
  const bool isEnabled = has(button, QStyle::State_Enabled);
  const bool isHovered = isEnabled && has(button, QStyle::State_MouseOver);
  const bool isDown = has(button, QStyle::State_Sunken) || has(button, QStyle::State_On);
  constexpr int lighter = 112;
  constexpr int darker = 115;
  QColor fill = theme.card;
  QColor outline = theme.border;
  if (isProminent(button)) {
    outline = QColor();
    fill = isDown ? theme.accent.darker(darker) : theme.accent;
    if (isHovered && !isDown) fill = theme.accent.lighter(lighter);
    if (!isEnabled) fill = theme.border;
  } else if ((button.features & QStyleOptionButton::Flat) != 0) {
    outline = QColor();
    fill = isHovered || isDown ? Theme::faint(theme.accent) : QColor();
  } else if (isHovered || isDown) {
    fill = isDown ? theme.border : theme.cardHovered;
    outline = theme.accent;
  }
  drawing::surface(painter, button.rect, fill, outline, drawing::controlRadius);
  if (!drawing::showsFocus(button)) return;
  if (isProminent(button)) {
    constexpr int inside = 2;  // the accent colour stays visible around the ring
    drawing::focusRing(painter, button.rect.adjusted(inside, inside, -inside, -inside),
                       theme.onAccent, drawing::controlRadius - inside);
  } else {
    drawing::focusRing(painter, button.rect, theme.accent, drawing::controlRadius);
  }
}

void drawThumb(const QStyleOptionSlider& bar, QRect thumb, QPainter& painter) {
  const Theme& theme = Theme::of(bar.palette);
  const bool isActive = has(bar, QStyle::State_MouseOver) || has(bar, QStyle::State_Sunken);
  QColor colour = isActive ? theme.tertiary : theme.disabled;
  constexpr int inset = 3;
  const bool isHorizontal = bar.orientation == Qt::Horizontal;
  thumb =
      isHorizontal ? thumb.adjusted(1, inset, -1, -inset) : thumb.adjusted(inset, 1, -inset, -1);
  drawing::surface(painter, thumb, colour, {}, (scrollBarExtent - 2 * inset) / 2);
}

void drawComboBox(const QStyleOptionComboBox& box, QPainter& painter) {
  const Theme& theme = Theme::of(box.palette);
  const bool isHovered = has(box, QStyle::State_Enabled) && has(box, QStyle::State_MouseOver);
  drawing::surface(painter, box.rect, isHovered ? theme.cardHovered : theme.card,
                   isHovered ? theme.accent : theme.border, drawing::controlRadius);
  constexpr int side = 14;
  QRect arrow(0, 0, side, side);
  arrow.moveCenter(QPoint(box.rect.right() - side, box.rect.center().y() + 1));
  symbols::paint(painter, QStringLiteral("chevron.down"), theme.secondary, arrow);
  if (drawing::showsFocus(box))
    drawing::focusRing(painter, box.rect, theme.accent, drawing::controlRadius);
}

}  // namespace

Style::Style() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void Style::polish(QPalette& palette) { palette = Theme::of(palette).palette(); }

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  const Theme& theme = Theme::of(option->palette);
  switch (element) {
    case PE_FrameFocusRect:
      if (drawing::showsFocus(*option))
        drawing::focusRing(*painter, option->rect, theme.accent, drawing::controlRadius);
      return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
      drawing::checkBox(*painter, option->rect, option->state, option->palette);
      return;
    case PE_PanelLineEdit: {
      const bool isFocused = has(*option, State_HasFocus);
      drawing::surface(*painter, option->rect, theme.card, isFocused ? theme.accent : theme.border,
                       drawing::controlRadius);
      return;
    }
    default:
      QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void Style::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                        const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (button != nullptr && element == CE_PushButtonBevel) {
    drawBevel(*button, *painter);
    return;
  }
  if (button != nullptr && element == CE_PushButtonLabel && isProminent(*button)) {
    QStyleOptionButton label = *button;
    const Theme& theme = Theme::of(button->palette);
    label.palette.setColor(QPalette::ButtonText,
                           has(*button, State_Enabled) ? theme.onAccent : theme.secondary);
    QProxyStyle::drawControl(element, &label, painter, widget);
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                               QPainter* painter, const QWidget* widget) const {
  if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
      bar != nullptr && control == CC_ScrollBar) {
    painter->fillRect(bar->rect, bar->palette.color(QPalette::Window));
    if (bar->maximum > bar->minimum)
      drawThumb(*bar, subControlRect(control, bar, SC_ScrollBarSlider, widget), *painter);
    return;
  }
  if (const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
      box != nullptr && control == CC_ComboBox && !box->editable) {
    drawComboBox(*box, *painter);
    return;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

// Scroll bars have no arrow buttons, so the thumb has the whole length.
QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                            SubControl part, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || bar == nullptr)
    return QProxyStyle::subControlRect(control, option, part, widget);

  const bool isHorizontal = bar->orientation == Qt::Horizontal;
  const int length = isHorizontal ? bar->rect.width() : bar->rect.height();
  const int range = bar->maximum - bar->minimum;
  constexpr int shortest = 36;
  const int thumb = range == 0 ? length
                               : std::clamp(static_cast<int>(std::int64_t{length} * bar->pageStep /
                                                             (std::int64_t{range} + bar->pageStep)),
                                            std::min(shortest, length), length);
  const int start =
      sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - thumb);
  const auto along = [&](int from, int extent) {
    return isHorizontal ? QRect(bar->rect.x() + from, bar->rect.y(), extent, bar->rect.height())
                        : QRect(bar->rect.x(), bar->rect.y() + from, bar->rect.width(), extent);
  };
  switch (part) {
    case SC_ScrollBarSlider:
      return along(start, thumb);
    case SC_ScrollBarGroove:
      return bar->rect;
    case SC_ScrollBarSubPage:
      return along(0, start);
    case SC_ScrollBarAddPage:
      return along(start + thumb, length - start - thumb);
    default:
      return {};
  }
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  switch (type) {
    case CT_PushButton: {
      constexpr int padding = 14;
      return {std::max(contents.width() + 2 * padding, controlHeight),
              std::max(size.height(), controlHeight)};
    }
    case CT_ComboBox: {
      constexpr int roomForArrow = 14;
      return {size.width() + roomForArrow, std::max(size.height(), controlHeight)};
    }
    case CT_ItemViewItem: {
      constexpr int rowHeight = 26;
      return {size.width(), std::max(size.height(), rowHeight)};
    }
    case CT_LineEdit:
      return {size.width(), std::max(size.height(), controlHeight)};
    default:
      return size;
  }
}

int Style::pixelMetric(PixelMetric metric, const QStyleOption* option,
                       const QWidget* widget) const {
  switch (metric) {
    case PM_ScrollBarExtent:
      return scrollBarExtent;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
      return drawing::checkBoxSide;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
      return 0;
    case PM_ButtonIconSize:
      return 16;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* returned) const {
  switch (hint) {
    case SH_EtchDisabledText:
    case SH_ItemView_ActivateItemOnSingleClick:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ComboBox_Popup:
      return 0;
    default:
      return QProxyStyle::styleHint(hint, option, widget, returned);
  }
}

}  // namespace broomtide::ui
