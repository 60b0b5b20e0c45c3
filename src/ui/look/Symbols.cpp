#include "ui/look/Symbols.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>
#include <utility>

namespace broomtide::ui::symbols {
namespace {

QByteArray svg(const QString& name, const QColor& colour) {
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.readAll().replace("currentColor", colour.name().toLatin1());
}

QPixmap render(const QString& name, const QColor& colour, QSize size, double ratio) {
  QPixmap pixmap(size);
  pixmap.fill(Qt::transparent);
  QSvgRenderer renderer(svg(name, colour));
  QPainter painter(&pixmap);
  renderer.render(&painter);
  painter.end();
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

// `size` is in device pixels.
QPixmap cached(const QString& name, const QColor& colour, QSize size, double ratio) {
  const QString key = QStringLiteral("symbol/%1/%2/%3/%4")
                          .arg(name, colour.name(QColor::HexArgb), QString::number(size.width()))
                          .arg(ratio);
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  pixmap = render(name, colour, size, ratio);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

class SymbolEngine final : public QIconEngine {
 public:
  SymbolEngine(QString name, const QColor& colour) : name_(std::move(name)), colour_(colour) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    const int side = std::min(rect.width(), rect.height());
    QRect square(0, 0, side, side);
    square.moveCenter(rect.center());
    symbols::paint(*painter, name_, colour_, square);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override {
    return cached(name_, colour_, size, 1);
  }

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode, QIcon::State, qreal) override {
    return cached(name_, colour_, size, 1);
  }

  QIconEngine* clone() const override { return new SymbolEngine(*this); }

 private:
  QString name_;
  QColor colour_;
};

}  // namespace

QIcon icon(const QString& name, const QColor& colour) {
  return QIcon(new SymbolEngine(name, colour));
}

void paint(QPainter& painter, const QString& name, const QColor& colour, const QRect& square) {
  const double ratio = painter.device()->devicePixelRatioF();
  const QSize size(static_cast<int>(std::lround(square.width() * ratio)),
                   static_cast<int>(std::lround(square.height() * ratio)));
  painter.drawPixmap(square.topLeft(), cached(name, colour, size, ratio));
}

QIcon brandMark() { return icon(QStringLiteral("BrandMark"), Qt::black); }

}  // namespace broomtide::ui::symbols
