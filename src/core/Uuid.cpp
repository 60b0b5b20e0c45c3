#include "core/Uuid.h"

#include <uuid/uuid.h>

namespace broomtide {

std::string newUuid() {
  uuid_t bytes;
  uuid_generate_random(bytes);
  std::string text(UUID_STR_LEN - 1, '\0');
  uuid_unparse_upper(bytes, text.data());
  return text;
}

}  // namespace broomtide
