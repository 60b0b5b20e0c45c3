#include "core/NameOrder.h"

#include <unicode/coll.h>
#include <unicode/utf16.h>

#include <cstdint>
#include <memory>

#include "core/SortKeys.h"
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

// Makes one key after the other in the same memory.
class KeyMaker {
 public:
  // The key, until the next one is made.
  std::span<const std::uint8_t> key(std::string_view name) {
    if (collator_ == nullptr) {
      key_.assign(name.begin(), name.end());
      return key_;
    }
    const std::int32_t length = readText(name);
    std::int32_t size = collator_->getSortKey(text_.data(), length, key_.data(), capacity());
    if (size > capacity()) {
      key_.resize(static_cast<std::size_t>(size));
      size = collator_->getSortKey(text_.data(), length, key_.data(), capacity());
    }
    return {key_.data(), static_cast<std::size_t>(size)};
  }

 private:
  std::int32_t capacity() const { return static_cast<std::int32_t>(key_.size()); }

  // The name as UTF-16, which never has more units than UTF-8 has bytes; what is not UTF-8 reads as
  // U+FFFD.
  std::int32_t readText(std::string_view name) {
    if (text_.size() < name.size()) text_.resize(name.size());
    std::int32_t length = 0;
    for (const char character : name) {
      if (static_cast<unsigned char>(character) >= 0x80) break;
      text_[static_cast<std::size_t>(length++)] = static_cast<char16_t>(character);
    }
    name.remove_prefix(static_cast<std::size_t>(length));
    while (!name.empty()) {
      const utf8::Sequence sequence = utf8::decode(name);
      U16_APPEND_UNSAFE(text_.data(), length, sequence.codePoint);
      name.remove_prefix(sequence.length);
    }
    return length;
  }

  const std::unique_ptr<icu::Collator> collator_ = naturalCollator();
  std::vector<char16_t> text_ = std::vector<char16_t>(512);
  std::vector<std::uint8_t> key_ = std::vector<std::uint8_t>(1024);
};

}  // namespace

std::vector<std::size_t> naturalOrder(std::span<const std::string_view> names) {
  std::size_t bytes = 0;
  for (const std::string_view name : names) bytes += name.size();
  SortKeys keys(names.size(), bytes * 3 / 2);
  KeyMaker maker;
  for (const std::string_view name : names) keys.add(maker.key(name));
  return keys.order();
}

}  // namespace broomtide
