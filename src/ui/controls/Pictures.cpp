#include "ui/controls/Pictures.h"

#include <QPainter>
#include <utility>

#include "ui/look/Symbols.h"

namespace broomtide::ui {

BrandMark::BrandMark(int side, QWidget* parent) : QWidget(parent) {
  setObjectName("BrandMark");
  setFixedSize(side, side);
}

void BrandMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  symbols::brandMark().paint(&painter, rect());
}

SymbolView::SymbolView(QString name, int side, Tone tone, QWidget* parent)
    : QWidget(parent), name_(std::move(name)), tone_(tone) {
  setFixedSize(side, side);
}

void SymbolView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  symbols::paint(painter, name_, Theme::of(palette()).colour(tone_), rect());
}

Divider::Divider(QWidget* parent) : QWidget(parent) { setFixedHeight(1); }

void Divider::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Theme::of(palette()).border);
}

BusyIndicator::BusyIndicator(QWidget* parent) : QWidget(parent) {
  constexpr int side = 44;
  constexpr int frameMilliseconds = 33;
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
  constexpr int turnMilliseconds = 1100;
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
