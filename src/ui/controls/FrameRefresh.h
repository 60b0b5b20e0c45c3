#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <utility>

namespace broomtide::ui {

/// Throttles the refreshes of a screen to one per frame, however often the model changes. For the
/// main thread alone.
class FrameRefresh final {
 public:
  /// `refresh` is called from the event loop, and never after the destruction of this object.
  explicit FrameRefresh(std::function<void()> refresh) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this, refresh = std::move(refresh)] {
      sinceLast_.start();
      refresh();
    });
  }

  /// Requests a refresh; further requests before it are merged into it. There is no delay after a
  /// frame without one.
  void request() {
    if (timer_.isActive()) return;
    constexpr qint64 frame = 16;  // milliseconds
    const qint64 passed = sinceLast_.isValid() ? sinceLast_.elapsed() : frame;
    timer_.start(static_cast<int>(std::max<qint64>(0, frame - passed)));
  }

 private:
  QTimer timer_;
  QElapsedTimer sinceLast_;
};

}  // namespace broomtide::ui
