#pragma once

#include <functional>
#include <memory>
#include <stop_token>

#include "app/Surroundings.h"

namespace broomtide {

class AppModel;

/// The way from a task to the model: changes that the main thread makes, and drops when the model
/// is gone by then. May be copied and used on any thread.
class ModelLink {
 public:
  using Change = std::function<void(AppModel&)>;

  /// `mainThread` must outlive the link and its copies; `model` expires on the main thread.
  ModelLink(MainThread& mainThread, std::weak_ptr<AppModel> model);

  /// Hands over a change that owns what it needs, and never waits for it.
  void post(Change change) const;

  /// Hands over a change that may refer to what the caller holds, and blocks until it was made or
  /// dropped. Throws what the change throws. The waiting also ends when `stop` is asked to stop;
  /// the change then is over or never begins, although the main thread may still come across it.
  void postAndWait(Change change, const std::stop_token& stop) const;

 private:
  std::function<void()> ifModelLives(Change change) const;

  MainThread& mainThread_;
  std::weak_ptr<AppModel> model_;
};

}  // namespace broomtide
