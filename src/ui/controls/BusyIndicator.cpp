#include "ui/controls/BusyIndicator.h"

#include <QPainter>

#include "ui/look/Theme.h"

namespace broomtide::ui {
namespace {

constexpr int side = 44;
constexpr int frameMilliseconds = 33;
constexpr int turnMilliseconds = 1100;

}  // namespace

BusyIndicator::BusyIndicator(QWidget* parent) : QWidget(parent) {
  setFixedSize(side, side);
  setAccessibleName(tr("Scanning"));
  frames_.setInterval(frameMilliseconds);
  connect(&frames_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void BusyIndicator::showEvent(QShowEvent*) {
  time_.start();
  frames_.start();
}

void BusyIndicator::hideEvent(QHideEvent*) { frames_.stop(); }

void BusyIndicator::paintEvent(QPaintEvent*) {
  constexpr int width = 4;
  constexpr int unitsInDegree = 16;
  constexpr int arcDegrees = 100;
  const Theme& theme = Theme::of(palette());
  const QRectF circle = QRectF(rect()).adjusted(width, width, -width, -width);
  const auto turned = static_cast<int>(time_.elapsed() % turnMilliseconds * 360 / turnMilliseconds);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme.border, width, Qt::SolidLine, Qt::RoundCap));
  painter.drawEllipse(circle);
  painter.setPen(QPen(theme.accent, width, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(circle, (90 - turned) * unitsInDegree, -arcDegrees * unitsInDegree);
}

}  // namespace broomtide::ui
