#include "core/FileUrl.h"

namespace broomtide {
namespace {

bool isUnreserved(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
         (byte >= '0' && byte <= '9') || byte == '-' || byte == '.' || byte == '_' || byte == '~';
}

}  // namespace

std::string fileUrl(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string url = "file://";
  url.reserve(url.size() + path.size());
  for (const char byte : path) {
    if (isUnreserved(byte) || byte == '/') {
      url += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      url += {'%', digits[value >> 4U], digits[value & 0xFU]};
    }
  }
  return url;
}

}  // namespace broomtide
