#include "platform/PathSafety.h"

#include <filesystem>
#include <system_error>

#include "core/Paths.h"

namespace broomtide::PathSafety {

std::string resolved(std::string_view path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::weakly_canonical(path, error);
  return paths::standardized(error ? path : std::string_view(real.native()));
}

bool contains(std::string_view item, std::string_view root) {
  return paths::isBelow(resolved(item), resolved(root));
}

}  // namespace broomtide::PathSafety
