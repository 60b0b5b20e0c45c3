#include "core/NameOrder.h"

#include <unicode/coll.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <string_view>

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

std::string sortKey(const icu::Collator* collator, const std::string& name) {
  if (collator == nullptr) return name;
  const auto text = icu::UnicodeString::fromUTF8(utf8::printable(name));
  std::string key(static_cast<std::size_t>(collator->getSortKey(text, nullptr, 0)), '\0');
  collator->getSortKey(text, reinterpret_cast<std::uint8_t*>(key.data()),
                       static_cast<std::int32_t>(key.size()));
  return key;
}

}  // namespace

std::vector<std::size_t> naturalOrder(const std::vector<std::string>& names) {
  const std::unique_ptr<icu::Collator> collator = naturalCollator();
  std::vector<std::string> keys;
  keys.reserve(names.size());
  for (const std::string& name : names) keys.push_back(sortKey(collator.get(), name));

  std::vector<std::size_t> order(names.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(
      order, {}, [&keys](std::size_t index) -> const std::string& { return keys[index]; });
  return order;
}

}  // namespace broomtide
