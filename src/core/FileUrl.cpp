#include "core/FileUrl.h"

namespace broomtide {
namespace {

bool isUnreserved(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
         (byte >= '0' && byte <= '9') || byte == '-' || byte == '.' || byte == '_' || byte == '~';
}

}  // namespace

std::string percentEncoded(std::string_view path) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string encoded;
  encoded.reserve(path.size());
  for (const char byte : path) {
    if (isUnreserved(byte) || byte == '/') {
      encoded += byte;
    } else {
      const auto value = static_cast<unsigned char>(byte);
      encoded += {'%', digits[value >> 4U], digits[value & 0xFU]};
    }
  }
  return encoded;
}

std::string fileUrl(std::string_view path) { return "file://" + percentEncoded(path); }

}  // namespace broomtide
