#pragma once

#include <QObject>

namespace broomtide::ui {

/// Lets a key that is held down act once. An X server repeats such a key as a release and a press
/// of the same moment, which Qt takes for a new press whenever it reads the two apart; one held key
/// would then go through screen after screen. To be installed on the application.
class HeldKeys final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int releasedKey_ = 0;
  quint64 releasedAt_ = 0;  // milliseconds of the X server's clock
};

}  // namespace broomtide::ui
