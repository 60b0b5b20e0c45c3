#include "scanner/WalkBatch.h"

#include <utility>

#include "core/Paths.h"

namespace broomtide {

std::string WalkBatch::relativePath(const Step& step) const {
  const std::string_view text = text_;
  const std::string_view folder = text.substr(step.folderStart, step.folderLength);
  const std::string_view name = text.substr(step.nameStart, step.nameLength);
  if (folder.empty()) return std::string(name);
  return name.empty() ? std::string(folder) : paths::appending(folder, name);
}

WalkBatch::Step& WalkBatch::addStep(Kind kind, std::string_view folder, std::string_view name) {
  if (std::string_view(text_).substr(folderStart_, folderLength_) != folder) {
    folderStart_ = static_cast<std::uint32_t>(text_.size());
    folderLength_ = static_cast<std::uint32_t>(folder.size());
    text_ += folder;
  }
  const auto nameStart = static_cast<std::uint32_t>(text_.size());
  text_ += name;
  return steps_.emplace_back(Step{.kind = kind,
                                  .nameLength = static_cast<std::uint16_t>(name.size()),
                                  .nameStart = nameStart,
                                  .folderStart = folderStart_,
                                  .folderLength = folderLength_});
}

void WalkBatch::addPassedOver() { steps_.push_back({.kind = Kind::passedOver}); }

void WalkBatch::addUnmatched(std::string_view folder, std::string_view name) {
  addStep(Kind::unmatched, folder, name);
}

void WalkBatch::addMatch(std::string_view folder, std::string_view name, WalkMatch match) {
  addStep(Kind::matched, folder, name).detail = static_cast<std::uint32_t>(matches_.size());
  matches_.push_back(std::move(match));
}

void WalkBatch::addIssue(Kind kind, std::string_view folder, std::string_view name,
                         std::string message) {
  addStep(kind, folder, name).detail = static_cast<std::uint32_t>(messages_.size());
  messages_.push_back(std::move(message));
}

}  // namespace broomtide
