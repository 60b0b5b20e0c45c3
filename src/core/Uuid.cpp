#include "core/Uuid.h"

#include <uuid/uuid.h>

namespace broomtide {
namespace {

std::string upperCaseText(const uuid_t& bytes) {
  std::string text(UUID_STR_LEN - 1, '\0');
  uuid_unparse_upper(bytes, text.data());
  return text;
}

}  // namespace

std::string newUuid() {
  uuid_t bytes;
  uuid_generate_random(bytes);
  return upperCaseText(bytes);
}

std::optional<std::string> canonicalUuid(std::string_view text) {
  uuid_t bytes;
  const bool hasLength = text.size() == UUID_STR_LEN - 1;
  if (!hasLength || uuid_parse(std::string(text).c_str(), bytes) != 0) return std::nullopt;
  return upperCaseText(bytes);
}

}  // namespace broomtide
