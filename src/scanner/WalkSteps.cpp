#include "scanner/WalkSteps.h"

#include <algorithm>
#include <utility>

#include "core/Paths.h"

// How a walk is written down. All steps of a project scan are kept until every project is known, a
// million and more, so a step is a record of eight bytes and its name:
//
//   records_        one for each step: its kind and the length of its name; before it, when it lies
//                   in another folder than the step before, one that changes the folder
//   text_           the names of the steps and the changes of the folder, one after the other and
//                   with nothing between them, in the order of the records
//   keptOfFolders_  for each change of the folder, how many bytes stay of the folder before; its
//                   text is what is appended to them
//   matches_        for each matched step, what is known of the match
//   issues_         for each step with an issue, its text
//
// A reader goes through all five side by side. The folder stays the same from one batch to the
// next: a batch begins in the folder in which the one before has ended, so batches are read in
// order and none is left out. A step that was passed over is only counted; it has no name.

namespace broomtide {

using enum WalkStep::Kind;

std::string WalkStep::relativePath() const {
  if (folder.empty()) return std::string(name);
  return name.empty() ? std::string(folder) : paths::appending(folder, name);
}

void WalkWriter::addPassedOver() {
  batch_.records_.push_back({.changesFolder = false, .kind = passedOver, .textLength = 0});
}

void WalkWriter::addUnmatched(std::string_view folder, std::string_view name) {
  add(unmatched, folder, name);
}

void WalkWriter::addMatch(std::string_view folder, std::string_view name, WalkMatch match) {
  add(matched, folder, name);
  batch_.matches_.push_back(std::move(match));
}

void WalkWriter::addProven(std::string_view folder, WalkMatch match) {
  add(proven, folder, {});
  batch_.matches_.push_back(std::move(match));
}

void WalkWriter::addEntryIssue(std::string_view folder, std::string_view name, std::string issue) {
  add(entryIssue, folder, name);
  batch_.issues_.push_back(std::move(issue));
}

void WalkWriter::addFolderIssue(std::string_view folder, std::string issue) {
  add(folderIssue, folder, {});
  batch_.issues_.push_back(std::move(issue));
}

WalkBatch WalkWriter::take() { return std::exchange(batch_, {}); }

void WalkWriter::add(WalkStep::Kind kind, std::string_view folder, std::string_view name) {
  if (folder != folder_) {
    const auto differing = std::ranges::mismatch(folder_, folder);
    const auto kept = static_cast<std::size_t>(differing.in1 - folder_.begin());
    const std::string_view appended = folder.substr(kept);
    batch_.keptOfFolders_.push_back(kept);
    batch_.records_.push_back({.changesFolder = true,
                               .kind = kind,
                               .textLength = static_cast<std::uint32_t>(appended.size())});
    batch_.text_ += appended;
    folder_.resize(kept);
    folder_ += appended;
  }
  batch_.records_.push_back({.changesFolder = false,
                             .kind = kind,
                             .textLength = static_cast<std::uint32_t>(name.size())});
  batch_.text_ += name;
}

void WalkReader::begin(WalkBatch batch) {
  batch_ = std::move(batch);
  nextRecord_ = nextText_ = nextFolder_ = nextMatch_ = nextIssue_ = 0;
}

const WalkStep* WalkReader::next() {
  for (; nextRecord_ < batch_.records_.size() && batch_.records_[nextRecord_].changesFolder;
       ++nextRecord_) {
    folder_.resize(batch_.keptOfFolders_[nextFolder_++]);
    folder_ += nextText(batch_.records_[nextRecord_].textLength);
  }
  if (nextRecord_ == batch_.records_.size()) return nullptr;

  const WalkBatch::Record& record = batch_.records_[nextRecord_++];
  step_ = {.kind = record.kind, .folder = folder_, .name = nextText(record.textLength)};
  if (record.kind == matched || record.kind == proven) step_.match = &batch_.matches_[nextMatch_++];
  if (record.kind == entryIssue || record.kind == folderIssue) {
    step_.issue = &batch_.issues_[nextIssue_++];
  }
  return &step_;
}

std::string_view WalkReader::nextText(std::size_t length) {
  return std::string_view(batch_.text_)
      .substr(std::exchange(nextText_, nextText_ + length), length);
}

}  // namespace broomtide
