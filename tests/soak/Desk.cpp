#include "soak/Desk.h"

#include "app/Services.h"
#include "soak/Mismatch.h"

namespace broomtide::soak {

Desk::Desk() : model_(services::makeModel(loop_, *this, access_)) {}

void Desk::scan(const std::string& folder, ScanMode mode) {
  choice_ = folder;
  model_->presentFolderPicker(std::nullopt, mode);
  requireNoError("the folder was turned down");
  loop_.runUntil([this] { return model_->route() != Route::scanning; });
  requireNoError("the scan failed");
}

void Desk::scanTwice(const std::string& folder, ScanMode mode) {
  choice_ = folder;
  model_->presentFolderPicker(std::nullopt, mode);
  scan(folder, mode);
}

void Desk::clean(const std::vector<std::string>& identifiers) {
  bool isRecorded = false;
  const auto observation = model_->observe([&isRecorded](AppModel::Field field) {
    if (field == AppModel::Field::history) isRecorded = true;
  });
  model_->unselectAll();
  for (const std::string& identifier : identifiers) model_->toggleCandidate(identifier);
  model_->showConfirmation();
  model_->cleanSelectedItems();
  loop_.runUntil([&] { return isRecorded || model_->errorMessage(); });
  requireNoError("the cleanup failed");
}

void Desk::loadHistory() {
  model_->showHistory();
  loop_.runUntil([this] { return model_->route() == Route::history; });
}

std::optional<std::string> Desk::pickFolder(const FolderRequest&) { return choice_; }

void Desk::requireNoError(const std::string& what) const {
  if (model_->errorMessage()) throw Mismatch(what + ": " + *model_->errorMessage());
}

}  // namespace broomtide::soak
