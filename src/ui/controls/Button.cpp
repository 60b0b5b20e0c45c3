#include "ui/controls/Button.h"

#include <QEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <utility>

#include "ui/look/Symbols.h"
#include "ui/look/Theme.h"
#include "ui/look/Typography.h"

namespace broomtide::ui {
namespace {

QShortcut* shortcut(QWidget& screen, Qt::Key key) {
  auto* result = new QShortcut(QKeySequence(key), &screen);
  result->setContext(Qt::WidgetWithChildrenShortcut);
  result->setAutoRepeat(false);
  return result;
}

// The button that people would expect Return to press: the one that has the focus, if any.
QAbstractButton& buttonInFocus(const QWidget& screen, QAbstractButton& otherwise) {
  auto* focused = qobject_cast<QPushButton*>(screen.focusWidget());
  const bool isButton = focused != nullptr && focused->hasFocus() && focused->isEnabled();
  return isButton ? *focused : otherwise;
}

}  // namespace

Button::Button(const QString& text, Look look, QString symbol, QWidget* parent)
    : QPushButton(text, parent), look_(look), symbol_(std::move(symbol)) {
  setDefault(look == Look::prominent);
  setAutoDefault(false);  // the focus makes no other button look like the default action
  setFlat(look == Look::plain);
  setFocusPolicy(Qt::TabFocus);  // Return stays the default action after a click
  setFont(fontFor(look == Look::prominent ? TextStyle::medium : TextStyle::body));
  applyTheme();
}

void Button::changeEvent(QEvent* event) {
  QPushButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ParentChange) applyTheme();
}

// Return presses a button that has the focus, on screens without a default action too.
void Button::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isReturn && !event->isAutoRepeat()) {
    click();
  } else {
    QPushButton::keyPressEvent(event);
  }
}

void Button::applyTheme() {
  const Theme& theme = Theme::of(palette());
  const QColor colour = look_ == Look::plain ? theme.secondary : theme.text;
  if (look_ == Look::plain && palette().color(QPalette::Active, QPalette::ButtonText) != colour) {
    QPalette changed;
    changed.setColor(QPalette::ButtonText, colour);
    setPalette(changed);
  }
  if (!symbol_.isEmpty()) setIcon(symbols::icon(symbol_, colour));
}

void setDefaultAction(QWidget& screen, QAbstractButton& button) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    QObject::connect(shortcut(screen, key), &QShortcut::activated, &button,
                     [&screen, &button] { buttonInFocus(screen, button).click(); });
  }
}

void setCancelAction(QWidget& screen, QAbstractButton& button) {
  QObject::connect(shortcut(screen, Qt::Key_Escape), &QShortcut::activated, &button,
                   [&button] { button.click(); });
}

}  // namespace broomtide::ui
