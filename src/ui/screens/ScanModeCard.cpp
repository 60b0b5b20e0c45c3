#include "ui/screens/ScanModeCard.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <utility>

#include "ui/controls/Keys.h"
#include "ui/look/Drawing.h"
#include "ui/look/Symbols.h"
#include "ui/look/Theme.h"

namespace broomtide::ui {
namespace {

constexpr int padding = 20;
constexpr int iconSide = 34;
constexpr int smallIconSide = 16;
constexpr int minCardWidth = 230;
constexpr int minDetailLines = 3;

QColor blend(const QColor& from, const QColor& to, double progress) {
  const auto mix = [progress](int a, int b) { return a + qRound((b - a) * progress); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

// The geometry of a card, for measuring and for painting.
struct Layout {
  QFont titleFont = fontFor(TextStyle::headline);
  QFont detailFont = fontFor(TextStyle::small);
  QFont actionFont = fontFor(TextStyle::smallBold);
  QRect icon, title, detail, actionIcon, action;
  int height = 0;

  explicit Layout(const QRect& card, const QString& titleText = {},
                  const QString& detailText = {}) {
    const int left = card.x() + padding;
    const int width = card.width() - 2 * padding;
    icon = QRect(left, card.y() + padding, iconSide, iconSide);
    title = QRect(left, icon.bottom() + 13, width,
                  std::max(lineHeight(titleFont), drawing::heightOf(titleText, titleFont, width)));
    detail = QRect(left, title.bottom() + 5, width,
                   std::max(minDetailLines * lineHeight(detailFont),
                            drawing::heightOf(detailText, detailFont, width)));
    height = detail.bottom() + 17 + smallIconSide + padding - card.y();
    const int bottom = card.y() + std::max(card.height(), height) - padding;
    actionIcon = QRect(left, bottom - smallIconSide, smallIconSide, smallIconSide);
    action = QRect(actionIcon.right() + 7, actionIcon.y() - 2, width - smallIconSide - 6,
                   smallIconSide + 4);
  }
};

}  // namespace

ScanModeCard::ScanModeCard(QString icon, const QString& title, QString detail, QWidget* parent)
    : QAbstractButton(parent), icon_(std::move(icon)), detail_(std::move(detail)) {
  setText(title);
  setAccessibleName(tr("Scan %1").arg(title));
  setAccessibleDescription(detail_);
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  constexpr int milliseconds = 120;
  highlight_.setDuration(milliseconds);
  highlight_.setEasingCurve(QEasingCurve::OutCubic);
  highlight_.setStartValue(0.0);
  highlight_.setEndValue(1.0);
  connect(&highlight_, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

QSize ScanModeCard::sizeHint() const {
  return {minCardWidth, Layout(QRect(0, 0, minCardWidth, 0)).height};
}

int ScanModeCard::heightForWidth(int width) const {
  return Layout(QRect(0, 0, width, 0), text(), detail_).height;
}

void ScanModeCard::enterEvent(QEnterEvent*) { setHovered(true); }

void ScanModeCard::leaveEvent(QEvent*) { setHovered(false); }

void ScanModeCard::setHovered(bool isHovered) {
  highlight_.setDirection(isHovered ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
  if (highlight_.state() != QAbstractAnimation::Running) highlight_.start();
}

void ScanModeCard::keyPressEvent(QKeyEvent* event) {
  if (!keys::clickOnReturn(*this, *event)) QAbstractButton::keyPressEvent(event);
}

void ScanModeCard::paintEvent(QPaintEvent*) {
  const Theme& theme = Theme::of(palette());
  const Layout layout(rect(), text(), detail_);
  const double highlight = isDown() ? 1 : highlight_.currentValue().toDouble();
  QPainter painter(this);
  drawing::surface(painter, rect(), blend(theme.card, theme.cardHovered, highlight),
                   blend(theme.border, theme.accent, highlight), drawing::cardRadius);
  QStyleOption option;
  option.initFrom(this);
  if (drawing::showsFocus(option))
    drawing::focusRing(painter, rect(), theme.accent, drawing::cardRadius);

  symbols::paint(painter, icon_, theme.accent, layout.icon);
  drawing::paragraph(painter, layout.title, layout.titleFont, theme.text, text());
  drawing::paragraph(painter, layout.detail, layout.detailFont, theme.secondary, detail_);
  symbols::paint(painter, QStringLiteral("folder"), theme.accent, layout.actionIcon);
  drawing::line(painter, layout.action, layout.actionFont, theme.accent, tr("Choose Folder…"),
                Qt::ElideRight);
}

}  // namespace broomtide::ui
