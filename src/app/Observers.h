#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace broomtide {

/// Those who want to hear of changes, on one thread. An operation notes each change when it makes
/// it and tells of all at its end, so that nobody sees it half done. An observer may start further
/// operations, add observers and drop any of them while it is being told.
template <typename Field>
class Observers {
 public:
  using Observer = std::function<void(Field)>;

  /// Tells `observer` of every change until the returned handle is given up.
  [[nodiscard]] std::shared_ptr<void> add(Observer observer) {
    std::erase_if(observers_, [](const auto& known) { return known.expired(); });
    auto handle = std::make_shared<Observer>(std::move(observer));
    observers_.push_back(handle);
    return handle;
  }

  void note(Field change) { untold_.push_back(change); }

  /// Tells of what was noted, in that order.
  void tell() {
    // Told within an observer, the rest of the changes goes out there, and none is left here.
    while (!untold_.empty()) {
      const Field change = untold_.front();
      untold_.pop_front();
      const std::vector<std::weak_ptr<const Observer>> all = observers_;
      for (const std::weak_ptr<const Observer>& known : all) {
        // A copy, so that the handle alone decides whether somebody still wants to hear.
        std::shared_ptr<const Observer> handle = known.lock();
        if (handle == nullptr) continue;
        const Observer observer = *handle;
        handle.reset();
        observer(change);
      }
    }
  }

 private:
  std::vector<std::weak_ptr<const Observer>> observers_;
  std::deque<Field> untold_;
};

}  // namespace broomtide
