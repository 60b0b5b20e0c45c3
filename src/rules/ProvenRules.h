#pragma once

#include <array>
#include <string_view>

#include "rules/ScanRule.h"

/// What is recognised by what is in it instead of its name. Never preselected: the name says
/// nothing to people.
namespace broomtide::ProvenRules {

namespace detail {

constexpr ScanRule rule(std::string_view id, std::string_view category, SafetyLevel safety,
                        std::string_view explanation, bool allowsWithoutProject) {
  return {.id = id,
          .matcher = {},
          .kind = CandidateKind::directory,
          .category = category,
          .safety = safety,
          .explanation = explanation,
          .policy = {.allowsWithoutProject = allowsWithoutProject}};
}

}  // namespace detail

inline constexpr ScanRule cmakeTree =
    detail::rule("cmake-tree", "Build Output", SafetyLevel::usuallySafe,
                 "A whole CMake build tree that can be configured and built again.", true);
inline constexpr ScanRule mesonTree =
    detail::rule("meson-tree", "Build Output", SafetyLevel::usuallySafe,
                 "A whole Meson build tree that can be set up and built again.", true);
inline constexpr ScanRule cargoTarget =
    detail::rule("cargo-target", "Build Output", SafetyLevel::usuallySafe,
                 "Cargo build output that can be built again.", true);
inline constexpr ScanRule taggedCache =
    detail::rule("tagged-cache", "Cache", SafetyLevel::reviewFirst,
                 "A folder that a program has marked as a cache. Review before cleaning.", false);

inline constexpr std::array all{&cmakeTree, &mesonTree, &cargoTarget, &taggedCache};

}  // namespace broomtide::ProvenRules
