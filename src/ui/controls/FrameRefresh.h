#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <utility>

namespace broomtide::ui {

/// Throttles the refreshes of a screen to one per frame, however often the model changes.
class FrameRefresh final {
 public:
  /// `refresh` is called from the event loop, while this object lives.
  explicit FrameRefresh(std::function<void()> refresh) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this, refresh = std::move(refresh)] {
      sinceLast_.start();
      refresh();
    });
  }

  /// Asks for a refresh. The first one after a pause comes at once.
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
