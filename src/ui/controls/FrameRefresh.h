#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

namespace broomtide::ui {

/// Brings a screen up to date with what it shows, however often that changes, once per frame.
class FrameRefresh final {
 public:
  /// `refresh` is called from the event loop, while this object lives.
  explicit FrameRefresh(std::function<void()> refresh);

  /// Asks for a refresh. The first one after a pause comes at once.
  void request();

 private:
  QTimer timer_;
  QElapsedTimer sinceLast_;
};

}  // namespace broomtide::ui
