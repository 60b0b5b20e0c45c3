#include "app/ModelLink.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

namespace broomtide {
namespace {

// One piece of work between the thread that waits for it and the one that runs it. Both sides hold
// the lock while they use the work, so it cannot be given up halfway.
class AwaitedWork {
 public:
  explicit AwaitedWork(std::function<void()> work) : work_(std::move(work)) {}

  void runUnlessGivenUp() {
    const std::scoped_lock lock(mutex_);
    if (!work_) return;
    try {
      work_();
    } catch (...) {
      failure_ = std::current_exception();
    }
    work_ = nullptr;
    over_.notify_all();
  }

  void waitOrGiveUp(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    over_.wait(lock, stop, [this] { return !work_; });
    work_ = nullptr;
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  }

 private:
  std::mutex mutex_;
  std::condition_variable_any over_;
  std::function<void()> work_;  // empty once it is over
  std::exception_ptr failure_;
};

}  // namespace

ModelLink::ModelLink(MainThread& mainThread, std::weak_ptr<AppModel> model)
    : mainThread_(mainThread), model_(std::move(model)) {}

void ModelLink::post(Change change) const { mainThread_.post(ifModelLives(std::move(change))); }

void ModelLink::postAndWait(Change change, const std::stop_token& stop) const {
  const auto awaited = std::make_shared<AwaitedWork>(ifModelLives(std::move(change)));
  mainThread_.post([awaited] { awaited->runUnlessGivenUp(); });
  awaited->waitOrGiveUp(stop);
}

std::function<void()> ModelLink::ifModelLives(Change change) const {
  return [weak = model_, change = std::move(change)] {
    if (const std::shared_ptr<AppModel> model = weak.lock()) change(*model);
  };
}

}  // namespace broomtide
