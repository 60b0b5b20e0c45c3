#include "core/Paths.h"

#include <algorithm>
#include <vector>

namespace broomtide::paths {
namespace {

constexpr char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool isUnreserved(char byte) {
  return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
         (byte >= '0' && byte <= '9') || byte == '-' || byte == '.' || byte == '_' || byte == '~';
}

std::optional<unsigned> hexadecimalDigit(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<unsigned>(digit - '0');
  if (digit >= 'A' && digit <= 'F') return static_cast<unsigned>(digit - 'A' + 10);
  if (digit >= 'a' && digit <= 'f') return static_cast<unsigned>(digit - 'a' + 10);
  return std::nullopt;
}

}  // namespace

std::string standardized(std::string_view path) {
  const bool isAbsolute = path.starts_with('/');
  std::vector<std::string_view> components;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    const std::string_view component = path.substr(start, end - start);
    start = end + 1;
    if (component.empty() || component == ".") continue;
    const bool canClimb = !components.empty() && components.back() != "..";
    if (component == ".." && canClimb) {
      components.pop_back();
    } else if (component != ".." || !isAbsolute) {
      components.push_back(component);
    }
  }
  std::string result;
  result.reserve(path.size() + 1);
  for (const std::string_view component : components) {
    if (isAbsolute || !result.empty()) result += '/';
    result += component;
  }
  if (result.empty()) return isAbsolute ? "/" : ".";
  return result;
}

std::string_view lastComponent(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos || path.size() == 1) return path;
  return path.substr(slash + 1);
}

std::string_view enclosingFolder(std::string_view path) {
  return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

std::string appending(std::string_view folder, std::string_view name) {
  std::string result;
  result.reserve(folder.size() + 1 + name.size());
  result += folder;
  if (!folder.ends_with('/')) result += '/';
  result += name;
  return result;
}

bool isBelow(std::string_view path, std::string_view folder) {
  return path.size() > folder.size() && path[folder.size()] == '/' && path.starts_with(folder);
}

std::string relativePath(std::string_view item, std::string_view root) {
  const std::string standardItem = standardized(item);
  const std::string standardRoot = standardized(root);
  if (isBelow(standardItem, standardRoot)) return standardItem.substr(standardRoot.size() + 1);
  return std::string(lastComponent(standardItem));
}

std::string_view pathExtension(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos || dot == 0) return {};
  return name.substr(dot + 1);
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

bool lessIgnoringCase(std::string_view left, std::string_view right) {
  const auto byte = [](char letter) { return static_cast<unsigned char>(lower(letter)); };
  return std::ranges::lexicographical_compare(left, right, {}, byte, byte);
}

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

std::string shellQuoted(std::string_view path) {
  const auto isPlain = [](char byte) {
    return isUnreserved(byte) || std::string_view("/+=:,@%").find(byte) != std::string_view::npos;
  };
  if (std::ranges::all_of(path, isPlain) && !path.starts_with('~')) return std::string(path);
  std::string quoted = "'";
  for (const char byte : path) {
    if (byte == '\'') {
      quoted += "'\\''";
    } else {
      quoted += byte;
    }
  }
  return quoted + '\'';
}

std::string fileUrl(std::string_view path) { return "file://" + percentEncoded(path); }

std::optional<std::string> percentDecoded(std::string_view text) {
  std::string decoded;
  while (!text.empty()) {
    char byte = text.front();
    std::size_t taken = 1;
    if (byte == '%') {
      if (text.size() < 3) return std::nullopt;
      const auto high = hexadecimalDigit(text[1]);
      const auto low = hexadecimalDigit(text[2]);
      if (!high || !low) return std::nullopt;
      byte = static_cast<char>(*high * 16 + *low);
      taken = 3;
    }
    decoded += byte;
    text.remove_prefix(taken);
  }
  return decoded;
}

}  // namespace broomtide::paths
