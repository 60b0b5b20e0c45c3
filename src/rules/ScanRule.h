#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/Contents.h"
#include "core/Enumerations.h"
#include "core/Records.h"

namespace broomtide {

/// What a rule implies about where its artefact may appear.
struct ContextPolicy {
  std::uint32_t kinds = 0;  ///< one bit a ProjectKind; none means that any ecosystem will do
  bool allowsWithoutProject = false;          ///< may be offered with no project around it
  bool isGenericName = true;                  ///< too common a word ever to be preselected
  std::string_view regenerationCommand = {};  ///< empty when none is known

  /// Whether the artefact may be offered inside `context`, or outside any project when that is
  /// null.
  bool accepts(const ProjectContext* context) const;

  bool operator==(const ContextPolicy&) const = default;
};

/// One kind of disposable artefact: which names it goes by and what is said about it. The texts
/// live as long as the program.
struct ScanRule {
  /// Which names a rule recognises.
  struct Matcher {
    enum class Form {
      exactName,          ///< the whole name is `text`; letter case counts
      fileExtension,      ///< the path extension is `text`; letter case does not count
      compoundExtension,  ///< the name ends with a dot and `text`; letter case does not count
      prefixedFile,       ///< the name begins with `prefix`, letter case counting, and its path
                          ///< extension is `text`, letter case not counting
    };

    Form form;
    std::string_view text;
    std::string_view prefix;
  };

  std::string_view id;  ///< stable and unique within its table
  Matcher matcher;
  CandidateKind kind;  ///< the rule applies to entries of this kind only
  std::string_view category;
  SafetyLevel safety;
  std::string_view explanation;
  ContextPolicy policy = {};     ///< the most cautious one unless a row says otherwise
  ContentsPolicy contents = {};  ///< what is looked for in a folder
  SelectionPolicy selection = SelectionPolicy::unselected;
  std::optional<double> minimumAge = std::nullopt;  ///< seconds since the last modification
};

}  // namespace broomtide
