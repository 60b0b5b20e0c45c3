#include "core/ByteCount.h"

#include <array>
#include <string_view>

namespace broomtide {
namespace {

struct Unit {
  std::string_view name;
  std::uint64_t bytes;
  std::uint64_t parts;  // how many displayed steps make one unit: 1, 10 or 100
};

constexpr std::array units{
    Unit{"KB", 1'000ULL, 1},
    Unit{"MB", 1'000'000ULL, 10},
    Unit{"GB", 1'000'000'000ULL, 100},
    Unit{"TB", 1'000'000'000'000ULL, 100},
    Unit{"PB", 1'000'000'000'000'000ULL, 100},
    Unit{"EB", 1'000'000'000'000'000'000ULL, 100},
};

std::string withoutTrailingZeros(std::uint64_t steps, std::uint64_t parts) {
  std::string text = std::to_string(steps / parts);
  std::uint64_t rest = steps % parts;
  if (rest == 0) return text;
  text += '.';
  for (std::uint64_t digit = parts / 10; rest != 0; digit /= 10) {
    text += static_cast<char>('0' + static_cast<char>(rest / digit));
    rest %= digit;
  }
  return text;
}

}  // namespace

ByteCount byteCount(std::int64_t bytes) {
  if (bytes == 0) return {"Zero", "KB"};
  const bool isNegative = bytes < 0;
  const std::string sign = isNegative ? "-" : "";
  const std::uint64_t magnitude =
      isNegative ? 0 - static_cast<std::uint64_t>(bytes) : static_cast<std::uint64_t>(bytes);
  if (magnitude == 1) return {sign + "1", "byte"};
  if (magnitude < 1'000) return {sign + std::to_string(magnitude), "bytes"};

  for (std::size_t index = 0; index < units.size(); ++index) {
    const Unit& unit = units.at(index);
    const std::uint64_t step = unit.bytes / unit.parts;
    const std::uint64_t steps = magnitude / step + (magnitude % step >= step - magnitude % step);
    const bool roundsUpToNext = steps >= 1'000 * unit.parts;
    if (roundsUpToNext && index + 1 < units.size()) continue;
    return {sign + withoutTrailingZeros(steps, unit.parts), unit.name};
  }
  return {};
}

std::string formatByteCount(std::int64_t bytes) {
  const ByteCount count = byteCount(bytes);
  return count.number + ' ' + std::string(count.unit);
}

}  // namespace broomtide
