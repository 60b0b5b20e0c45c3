#include "ui/shell/HeldKeys.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <vector>

namespace broomtide {
namespace {

// Notes the keys that arrive.
class Target final : public QWidget {
 public:
  std::vector<int> pressed;

 protected:
  void keyPressEvent(QKeyEvent* event) override { pressed.push_back(event->key()); }
};

bool send(QWidget& target, QEvent::Type type, Qt::Key key, quint64 moment) {
  QKeyEvent event(type, key, Qt::NoModifier);
  event.setTimestamp(moment);
  event.ignore();
  QCoreApplication::sendEvent(&target, &event);
  return event.isAccepted();
}

TEST(HeldKeys, ARepetitionThatLooksLikeANewPressDoesNothing) {
  for (const auto& [key, arriving] : std::vector<std::pair<Qt::Key, std::size_t>>{
           {Qt::Key_Return, 1},
           {Qt::Key_Enter, 1},
           {Qt::Key_Space, 1},
           {Qt::Key_Escape, 1},
           {Qt::Key_Down, 4},  // may repeat as it likes
       }) {
    Target target;
    ui::HeldKeys heldKeys;
    target.installEventFilter(&heldKeys);
    send(target, QEvent::KeyPress, key, 1000);
    for (const quint64 moment : {1600U, 1640U, 1680U}) {
      send(target, QEvent::KeyRelease, key, moment);
      const bool isTaken = send(target, QEvent::ShortcutOverride, key, moment);
      EXPECT_EQ(isTaken, arriving == 1);  // no shortcut gets it
      send(target, QEvent::KeyPress, key, moment);
    }
    EXPECT_THAT(target.pressed, testing::SizeIs(arriving));
  }
}

TEST(HeldKeys, APersonMayPressAgain) {
  Target target;
  ui::HeldKeys heldKeys;
  target.installEventFilter(&heldKeys);
  send(target, QEvent::KeyPress, Qt::Key_Return, 1000);
  send(target, QEvent::KeyRelease, Qt::Key_Return, 1050);
  EXPECT_FALSE(send(target, QEvent::ShortcutOverride, Qt::Key_Return, 1100));
  send(target, QEvent::KeyPress, Qt::Key_Return, 1100);
  send(target, QEvent::KeyRelease, Qt::Key_Return, 1150);
  send(target, QEvent::KeyPress, Qt::Key_Space, 1150);
  EXPECT_THAT(target.pressed, testing::ElementsAre(Qt::Key_Return, Qt::Key_Return, Qt::Key_Space));
}

}  // namespace
}  // namespace broomtide
