#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "rules/ScanRule.h"

namespace broomtide {

/// Finds the rules of a table that may accept a name by looking the name up, instead of trying
/// every rule: once by the whole name and once by its extension.
class RuleIndex {
 public:
  static constexpr std::size_t most = 127;

  /// Indexes a table of at most `most` rules, which must outlive the index.
  explicit RuleIndex(std::span<const ScanRule> rules);

  /// Calls `accept` for the rules that recognise the name of an entry of this kind, in table order,
  /// and returns the first one for which it answers true, or null.
  template <typename Accept>
  const ScanRule* first(std::string_view name, CandidateKind kind, Accept accept) const {
    std::uint8_t byName = bucket(kind, Part::name, name);
    std::uint8_t byExtension = bucket(kind, Part::extension, name);
    while (byName != none || byExtension != none) {
      std::uint8_t& next = byName < byExtension ? byName : byExtension;
      const std::size_t position = next;
      next = following_[position];
      const ScanRule& rule = rules_[position];
      if (recognises(rule, name, kind) && accept(rule)) return &rule;
    }
    return nullptr;
  }

  /// Whether the rule recognises the name of an entry of this kind.
  static bool recognises(const ScanRule& rule, std::string_view name, CandidateKind kind);

 private:
  enum class Part : std::uint8_t { name, extension };

  static constexpr std::uint8_t none = most;  // comes after every position
  static constexpr std::size_t bucketCount = 512;

  static std::size_t hash(CandidateKind kind, Part part, std::string_view text);
  std::uint8_t bucket(CandidateKind kind, Part part, std::string_view name) const;
  void insert(std::size_t position);

  std::span<const ScanRule> rules_;
  std::array<std::uint8_t, bucketCount> firstInBucket_;  // positions in the table, or none
  std::array<std::uint8_t, most> following_;             // the next position in the same bucket
};

}  // namespace broomtide
