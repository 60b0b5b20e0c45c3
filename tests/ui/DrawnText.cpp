#include "ui/DrawnText.h"

#include <QPaintDevice>
#include <QPaintEngine>

namespace broomtide::test {
namespace {

// Notes texts and draws nothing.
class NotingEngine final : public QPaintEngine {
 public:
  NotingEngine() : QPaintEngine(AllFeatures) {}

  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  Type type() const override { return User; }
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawPath(const QPainterPath&) override {}

  void updateState(const QPaintEngineState& change) override {
    if ((change.state() & DirtyTransform) != 0) transform_ = change.transform();
  }

  void drawTextItem(const QPointF& start, const QTextItem& item) override {
    const QRectF place(start.x(), start.y() - item.ascent(), item.width(),
                       item.ascent() + item.descent());
    texts.push_back({item.text(), transform_.mapRect(place)});
  }

  std::vector<DrawnText> texts;

 private:
  QTransform transform_;
};

class NotingDevice final : public QPaintDevice {
 public:
  explicit NotingDevice(QWidget& widget) : widget_(widget) {}

  QPaintEngine* paintEngine() const override { return &engine_; }
  std::vector<DrawnText> take() { return std::move(engine_.texts); }

 protected:
  int metric(PaintDeviceMetric metric) const override {
    switch (metric) {
      case PdmWidth:
        return widget_.width();
      case PdmHeight:
        return widget_.height();
      case PdmDepth:
        return 32;
      case PdmDpiX:
      case PdmPhysicalDpiX:
        return widget_.logicalDpiX();
      case PdmDpiY:
      case PdmPhysicalDpiY:
        return widget_.logicalDpiY();
      case PdmDevicePixelRatio:
        return 1;
      case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
      default:
        return 0;
    }
  }

 private:
  QWidget& widget_;
  mutable NotingEngine engine_;
};

}  // namespace

std::vector<DrawnText> drawnBy(QWidget& widget) {
  NotingDevice device(widget);
  widget.render(&device, QPoint(), QRegion(), QWidget::RenderFlags());
  return device.take();
}

}  // namespace broomtide::test
