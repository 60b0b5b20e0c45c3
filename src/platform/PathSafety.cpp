#include "platform/PathSafety.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <filesystem>
#include <optional>
#include <system_error>

#include "core/Paths.h"
#include "platform/FileManager.h"

namespace broomtide::FileIdentity {

std::string token(const FileAttributes& attributes) {
  return std::to_string(attributes.device) + ':' + std::to_string(attributes.inode) + ':' +
         std::to_string(attributes.typeBits);
}

}  // namespace broomtide::FileIdentity

namespace broomtide::PathSafety {
namespace {

// The kernel's own answer, for a tenth of the system calls that following each component takes.
// Nothing when it cannot be had or could mean something else.
std::optional<std::string> resolvedByKernel(const std::string& path) {
  if (!path.starts_with('/')) return std::nullopt;
  const FileDescriptor item(::open(path.c_str(), O_PATH | O_CLOEXEC));
  if (!item.isOpen()) return std::nullopt;
  const std::string entry = "/proc/self/fd/" + std::to_string(item.get());
  std::array<char, PATH_MAX> text{};
  const ssize_t length = ::readlink(entry.c_str(), text.data(), text.size());
  if (length <= 0) return std::nullopt;
  const std::string_view real(text.data(), static_cast<std::size_t>(length));
  const bool isPath = real.front() == '/' && real.size() < text.size();
  if (!isPath || real.ends_with(" (deleted)")) return std::nullopt;
  return std::string(real);
}

}  // namespace

std::string resolved(std::string_view path) {
  if (std::optional<std::string> real = resolvedByKernel(std::string(path)))
    return *std::move(real);
  std::error_code error;
  const std::filesystem::path real = std::filesystem::weakly_canonical(path, error);
  return paths::standardized(error ? path : std::string_view(real.native()));
}

bool contains(std::string_view item, std::string_view root) {
  return paths::isBelow(resolved(item), resolved(root));
}

}  // namespace broomtide::PathSafety
