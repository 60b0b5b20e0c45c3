#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>

namespace broomtide {

/// Hands items from one thread to another, in order, and never holds more than a given number.
template <typename Item>
class BoundedQueue {
 public:
  explicit BoundedQueue(std::size_t capacity) : capacity_(capacity) {}

  /// Adds an item; blocks while the queue is full. False, and nothing is added, once `stop` is
  /// asked to stop.
  bool push(Item item, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, stop, [this] { return items_.size() < capacity_; });
    if (stop.stop_requested()) return false;
    items_.push_back(std::move(item));
    changed_.notify_all();
    return true;
  }

  /// Says that nothing more will come; `failure`, when there is one, is thrown by pop() after the
  /// last item.
  void close(std::exception_ptr failure = nullptr) {
    const std::scoped_lock lock(mutex_);
    isClosed_ = true;
    failure_ = std::move(failure);
    changed_.notify_all();
  }

  /// Takes the next item; blocks until there is one. Nothing at the end, and once `stop` is asked
  /// to stop.
  std::optional<Item> pop(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, stop, [this] { return !items_.empty() || isClosed_; });
    if (stop.stop_requested()) return std::nullopt;
    if (items_.empty()) {
      if (failure_) std::rethrow_exception(failure_);
      return std::nullopt;
    }
    Item item = std::move(items_.front());
    items_.pop_front();
    changed_.notify_all();
    return item;
  }

 private:
  const std::size_t capacity_;
  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::deque<Item> items_;
  bool isClosed_ = false;
  std::exception_ptr failure_;
};

}  // namespace broomtide
