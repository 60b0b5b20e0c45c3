#include "core/SortOrder.h"

#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>

#include "core/Utf8.h"

namespace broomtide {
namespace {

std::unique_ptr<icu::Collator> naturalCollator() {
  // Where no language is set, the library would order by character codes.
  const icu::Locale user;
  const bool hasNoLanguage = std::string_view(user.getVariant()) == "POSIX";
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> collator(
      icu::Collator::createInstance(hasNoLanguage ? icu::Locale::getRoot() : user, status));
  if (collator == nullptr || U_FAILURE(status)) return nullptr;
  collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
  collator->setStrength(icu::Collator::SECONDARY);
  return collator;
}

// Bytes that are ordered as the name is.
std::string sortKey(const icu::Collator* collator, std::string_view name) {
  if (collator == nullptr) return std::string(name);
  const auto text = icu::UnicodeString::fromUTF8(name);
  std::string key(name.size() * 2 + 16, '\0');
  for (;;) {
    const auto capacity = static_cast<std::int32_t>(key.size());
    const std::int32_t size =
        collator->getSortKey(text, reinterpret_cast<std::uint8_t*>(key.data()), capacity);
    key.resize(static_cast<std::size_t>(size));
    if (size <= capacity) return key;
  }
}

}  // namespace

// Making a key costs more than comparing two, so each name's is made once.
std::vector<std::size_t> naturalOrder(std::span<const std::string_view> names) {
  const std::unique_ptr<icu::Collator> collator = naturalCollator();
  std::vector<std::string> keys;
  keys.reserve(names.size());
  for (const std::string_view name : names) keys.push_back(sortKey(collator.get(), name));
  std::vector<std::size_t> order(names.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {},
                           [&](std::size_t index) -> const std::string& { return keys[index]; });
  return order;
}

namespace {

// What decides about a row, kept together: candidates lie far apart in memory.
struct RankedRow {
  SafetyLevel safety;
  std::int64_t rank;
  const ScanCandidate* candidate;

  bool operator<(const RankedRow& other) const {
    return safety == other.safety ? rank < other.rank : safety < other.safety;
  }
};

std::int64_t rankOf(const ScanCandidate& candidate, SortOrder order) {
  switch (order) {
    case SortOrder::size:
      return ~candidate.size;  // turns the order around, and never overflows
    case SortOrder::date:
      return candidate.modificationDate.value_or(Date::max()).time_since_epoch().count();
    case SortOrder::name:
      break;
  }
  return 0;
}

void sortByName(CandidateRows& rows) {
  std::vector<std::string_view> names;
  names.reserve(rows.size());
  for (const ScanCandidate* candidate : rows) names.push_back(candidate->relativePath);
  CandidateRows sorted;
  sorted.reserve(rows.size());
  for (const std::size_t index : naturalOrder(names)) sorted.push_back(rows[index]);
  rows = std::move(sorted);
}

}  // namespace

CandidateRows rowsOf(std::span<const ScanCandidate> candidates) {
  CandidateRows rows;
  rows.reserve(candidates.size());
  for (const ScanCandidate& candidate : candidates) rows.push_back(&candidate);
  return rows;
}

void sortRows(CandidateRows& rows, SortOrder order) {
  if (order == SortOrder::name) sortByName(rows);
  std::vector<RankedRow> entries;
  entries.reserve(rows.size());
  for (const ScanCandidate* candidate : rows) {
    entries.push_back({candidate->safety, rankOf(*candidate, order), candidate});
  }
  std::stable_sort(entries.begin(), entries.end());
  std::ranges::transform(entries, rows.begin(), &RankedRow::candidate);
}

}  // namespace broomtide
