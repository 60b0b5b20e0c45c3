#include "cli/Session.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <set>
#include <stop_token>
#include <utility>

#include "app/Services.h"
#include "cli/Failure.h"
#include "cli/ProgressLine.h"

namespace broomtide::cli {

void MainLoop::post(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  work_.push_back(std::move(work));
  posted_.notify_one();
}

void MainLoop::runUntil(const std::function<bool()>& isDone) {
  while (!isDone()) {
    std::unique_lock lock(mutex_);
    posted_.wait(lock, [this] { return !work_.empty(); });
    const std::function<void()> next = std::move(work_.front());
    work_.pop_front();
    lock.unlock();
    next();
  }
}

Session::Session() : model_(services::makeModel(loop_, *this, access_)) {}

ExitStatus Session::scan(const std::string& root, ScanMode mode) {
  const Interruption interruption;
  const std::stop_callback forward(interruption.token(),
                                   [this] { loop_.post([this] { model_->requestStop(); }); });
  {
    ProgressLine line;
    const auto observation = model_->observe([&](AppModel::Field field) {
      if (field == AppModel::Field::progress) line.show(model_->progress());
    });
    begin(root, mode);
    loop_.runUntil([this] { return model_->route() != Route::scanning; });
  }
  if (interruption.token().stop_requested()) {  // also when the scan was just about to end
    std::fprintf(stderr, "%s\n", messages::scanCancelled.data());
    return ExitStatus::interrupted;
  }
  if (model_->route() == Route::results) return ExitStatus::done;
  return fail(root, model_->errorMessage().value_or(Message()).text());
}

// Nobody can pick what is no folder, or one that nobody may look into; scanning it tells why.
void Session::begin(const std::string& root, ScanMode mode) {
  std::error_code error;
  const bool canBePicked =
      std::filesystem::is_directory(root, error) && ::access(root.c_str(), R_OK) == 0;
  choice_ = root;
  if (canBePicked) {
    model_->presentFolderPicker(std::nullopt, mode);
  } else {
    model_->beginScan(root, mode, true);
  }
}

std::optional<std::string> Session::pickFolder(const FolderRequest&) { return choice_; }

std::optional<std::string> Session::select(const std::vector<std::string>& identifiers) {
  std::set<std::string_view> known;
  for (const ScanCandidate& candidate : model_->candidates()) known.insert(candidate.id());
  const std::set<std::string> wanted(identifiers.begin(), identifiers.end());
  const auto unknown = std::ranges::find_if_not(
      wanted, [&known](const std::string& identifier) { return known.contains(identifier); });
  if (unknown != wanted.end()) return *unknown;
  model_->unselectAll();
  for (const std::string& identifier : wanted) model_->toggleCandidate(identifier);
  return std::nullopt;
}

ExitStatus Session::clean(const std::stop_token& stop) {
  const std::stop_callback forward(stop, [this] { loop_.post([this] { model_->requestStop(); }); });
  isRecorded_ = false;
  const auto observation = model_->observe([this](AppModel::Field field) {
    if (field == AppModel::Field::history) isRecorded_ = true;
  });
  model_->showConfirmation();
  model_->cleanSelectedItems();
  loop_.runUntil([this] { return isRecorded_ || model_->errorMessage(); });

  if (!isRecorded_) fail(model_->errorMessage().value_or(Message()).text());
  if (stop.stop_requested()) return ExitStatus::interrupted;
  const std::optional<CleanupResult>& result = model_->cleanupResult();
  if (result && !result->failures.empty()) return ExitStatus::someLeftAlone;
  return isRecorded_ ? ExitStatus::done : ExitStatus::failed;
}

void Session::loadHistory() {
  model_->showHistory();
  loop_.runUntil([this] { return model_->route() == Route::history; });
}

}  // namespace broomtide::cli
