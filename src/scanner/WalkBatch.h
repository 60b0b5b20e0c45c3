#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "core/ProjectContext.h"
#include "platform/FileManager.h"
#include "rules/ScanRule.h"
#include "scanner/Measurement.h"

namespace broomtide {

/// An entry whose name and age a rule accepts and whose surroundings the rule allows.
struct WalkMatch {
  const ScanRule* rule = nullptr;
  const ProjectContext* project = nullptr;  ///< the nearest enclosing one, or null
  std::error_code error;                    ///< set when the entry cannot be examined any more
  FileAttributes attributes;

  std::shared_ptr<Measurement> measurement;  ///< of a folder; null when it cannot be opened
};

/// What the walk met, in its order. A few hundred steps share one block of text.
class WalkBatch {
 public:
  enum class Kind : std::uint8_t {
    passedOver,   ///< an entry that needs no further look
    unmatched,    ///< an entry that no rule accepts
    matched,      ///< an entry with a match
    entryIssue,   ///< an entry with a problem
    folderIssue,  ///< a problem with a folder that was counted before; not an entry
  };

  struct Step {
    Kind kind;
    std::uint16_t nameLength = 0;
    std::uint32_t nameStart = 0;
    std::uint32_t folderStart = 0;
    std::uint32_t folderLength = 0;
    std::uint32_t detail = 0;  ///< which match or message belongs to it
  };

  const std::vector<Step>& steps() const { return steps_; }
  std::size_t textSize() const { return text_.size(); }

  /// The path of a step's entry, relative to the scanned folder.
  std::string relativePath(const Step& step) const;
  WalkMatch& match(const Step& step) { return matches_[step.detail]; }
  const std::string& message(const Step& step) const { return messages_[step.detail]; }

  void addPassedOver();
  void addUnmatched(std::string_view folder, std::string_view name);
  void addMatch(std::string_view folder, std::string_view name, WalkMatch match);
  void addIssue(Kind kind, std::string_view folder, std::string_view name, std::string message);

 private:
  Step& addStep(Kind kind, std::string_view folder, std::string_view name);

  std::string text_;
  std::uint32_t folderStart_ = 0;  // of the folder that the last step was in
  std::uint32_t folderLength_ = 0;
  std::vector<Step> steps_;
  std::vector<WalkMatch> matches_;
  std::vector<std::string> messages_;
};

}  // namespace broomtide
