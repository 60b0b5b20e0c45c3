#pragma once

#include <functional>
#include <stop_token>
#include <utility>

namespace broomtide {

/// A stop source that is also asked to stop when the token of another one is.
class LinkedStopSource {
 public:
  explicit LinkedStopSource(std::stop_token outer)
      : forward_(std::move(outer), [this] { source_.request_stop(); }) {}

  std::stop_token token() const { return source_.get_token(); }
  void requestStop() { source_.request_stop(); }

 private:
  std::stop_source source_;
  std::stop_callback<std::function<void()>> forward_;
};

}  // namespace broomtide
