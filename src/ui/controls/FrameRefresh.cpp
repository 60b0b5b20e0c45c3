#include "ui/controls/FrameRefresh.h"

#include <algorithm>
#include <utility>

namespace broomtide::ui {

FrameRefresh::FrameRefresh(std::function<void()> refresh) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, [this, refresh = std::move(refresh)] {
    sinceLast_.start();
    refresh();
  });
}

void FrameRefresh::request() {
  if (timer_.isActive()) return;
  constexpr qint64 frame = 16;  // milliseconds
  const qint64 passed = sinceLast_.isValid() ? sinceLast_.elapsed() : frame;
  timer_.start(static_cast<int>(std::max<qint64>(0, frame - passed)));
}

}  // namespace broomtide::ui
