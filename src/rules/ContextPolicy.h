#pragma once

#include <cstdint>
#include <string_view>

#include "core/ProjectContext.h"

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
};

/// The policy of the rule with this identifier; the most cautious one for unknown identifiers.
const ContextPolicy& contextPolicy(std::string_view ruleId);

}  // namespace broomtide
