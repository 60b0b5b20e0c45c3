#include "rules/RuleIndex.h"

#include "core/Paths.h"

namespace broomtide {

using Form = ScanRule::Matcher::Form;

RuleIndex::RuleIndex(std::span<const ScanRule> rules) : rules_(rules) {
  firstInBucket_.fill(none);
  following_.fill(none);
  // Backwards, so that each bucket lists its rules in table order.
  for (std::size_t position = rules.size(); position-- > 0;) insert(position);
}

void RuleIndex::insert(std::size_t position) {
  const ScanRule& rule = rules_[position];
  const ScanRule::Matcher& matcher = rule.matcher;
  std::size_t index = 0;
  if (matcher.form == Form::exactName) {
    index = hash(rule.kind, Part::name, matcher.text);
  } else {
    // A compound extension is found by its last part, which is the name's own extension.
    const std::string_view text = matcher.text;
    index = hash(rule.kind, Part::extension, text.substr(text.rfind('.') + 1));
  }
  following_[position] = firstInBucket_[index];
  firstInBucket_[index] = static_cast<std::uint8_t>(position);
}

std::uint8_t RuleIndex::bucket(CandidateKind kind, Part part, std::string_view name) const {
  const std::string_view text = part == Part::name ? name : paths::pathExtension(name);
  return firstInBucket_[hash(kind, part, text)];
}

// Extensions are compared without letter case, so the bit that tells the cases of an ASCII letter
// apart is left out; names that differ only in it may share a bucket.
std::size_t RuleIndex::hash(CandidateKind kind, Part part, std::string_view text) {
  if (text.empty()) return 0;
  const auto folded = [&text](std::size_t position) -> std::size_t {
    return static_cast<unsigned char>(text[position]) & 0xDFU;
  };
  const std::size_t last = text.size() - 1;
  const std::size_t mixed = folded(0) * 5 + folded(last / 2) * 31 + folded(last) * 17 + last * 3;
  return (mixed * 4 + static_cast<std::size_t>(kind) * 2 + static_cast<std::size_t>(part)) %
         bucketCount;
}

bool RuleIndex::recognises(const ScanRule& rule, std::string_view name, CandidateKind kind) {
  const ScanRule::Matcher& matcher = rule.matcher;
  if (rule.kind != kind) return false;
  switch (matcher.form) {
    case Form::exactName:
      return name == matcher.text;
    case Form::fileExtension:
      return paths::equalIgnoringCase(paths::pathExtension(name), matcher.text);
    case Form::compoundExtension: {
      const std::size_t length = matcher.text.size();
      return name.size() > length && name[name.size() - length - 1] == '.' &&
             paths::equalIgnoringCase(name.substr(name.size() - length), matcher.text);
    }
    case Form::prefixedFile:
      return name.starts_with(matcher.prefix) &&
             paths::equalIgnoringCase(paths::pathExtension(name), matcher.text);
  }
  return false;
}

}  // namespace broomtide
