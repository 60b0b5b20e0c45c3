#include "cleanup/HistoryCodec.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <limits>
#include <stdexcept>
#include <utility>

#include "core/Date.h"
#include "core/RecordJson.h"
#include "core/Uuid.h"

namespace broomtide::HistoryCodec {
namespace {

using Json = nlohmann::json;  // keeps the keys of an object sorted

constexpr int version = 1;
constexpr int maxNesting = 512;
constexpr int indentation = 2;

template <typename Value>
Value valueOrThrow(std::optional<Value> value) {
  if (!value) throw std::invalid_argument("not in the form that is written");
  return *std::move(value);
}

const std::string& text(const Json& object, const char* key) {
  return object.at(key).get_ref<const std::string&>();
}

// Whether a number is whole, also one that is written as 1.0 or 1e0, and fits.
bool isInteger(const Json& value) {
  constexpr std::int64_t max = std::numeric_limits<std::int64_t>::max();
  if (value.is_number_unsigned()) return value.get<std::uint64_t>() <= max;
  if (!value.is_number_float()) return value.is_number_integer();
  const double number = value.get<double>();
  constexpr double beyond = 0x1p63;
  return std::trunc(number) == number && number >= -beyond && number < beyond;
}

std::int64_t integer(const Json& object, const char* key) {
  const Json& value = object.at(key);
  if (!isInteger(value)) throw std::invalid_argument("not an integer of 64 bits");
  return value.get<std::int64_t>();
}

const Json::array_t& array(const Json& object, const char* key) {
  return object.at(key).get_ref<const Json::array_t&>();
}

CleanupFailure failure(const Json& object) {
  return {.id = valueOrThrow(canonicalUuid(text(object, "id"))),
          .path = text(object, "path"),
          .message = bareSentence(text(object, "message"))};
}

CleanupHistoryEntry entry(const Json& object) {
  CleanupHistoryEntry result{.id = valueOrThrow(canonicalUuid(text(object, "id"))),
                             .date = valueOrThrow(dateFromIso8601(text(object, "date"))),
                             .rootPath = text(object, "rootPath"),
                             .movedCount = integer(object, "movedCount"),
                             .movedBytes = integer(object, "movedBytes"),
                             .failures = {}};
  for (const Json& item : array(object, "failures")) result.failures.push_back(failure(item));
  return result;
}

// How deeply a JSON text nests, counted without building anything.
int nesting(std::string_view text) {
  int depth = 0;
  int deepest = 0;
  bool isInString = false;
  for (std::size_t position = 0; position < text.size(); ++position) {
    const char character = text[position];
    if (character == '"') {
      isInString = !isInString;
    } else if (isInString) {
      if (character == '\\') ++position;  // what follows is part of the string
    } else if (character == '{' || character == '[') {
      deepest = std::max(deepest, ++depth);
    } else if (character == '}' || character == ']') {
      --depth;
    }
  }
  return deepest;
}

// Throws for a text that is not JSON and for one so deeply nested that it is an attack on memory.
// The library would count the nesting too, but then looks through a whole list after each element.
Json parse(std::string_view text) {
  if (nesting(text) > maxNesting) throw std::invalid_argument("nested too deeply");
  return Json::parse(text);
}

}  // namespace

Decoded decode(std::string_view text) {
  Decoded result;
  try {
    const Json envelope = parse(text);
    const std::int64_t found = integer(envelope, "version");
    if (found != version) result.defect = Defect::otherVersion;
    for (const Json& item : array(envelope, "entries")) result.entries.push_back(entry(item));
  } catch (const std::exception&) {
    if (!result.defect) result.defect = Defect::undecodable;
  }
  if (result.defect) result.entries.clear();
  return result;
}

std::string encode(const std::vector<CleanupHistoryEntry>& entries) {
  Json list = Json::array();
  for (CleanupHistoryEntry item : entries) {
    item.date = std::chrono::floor<std::chrono::seconds>(item.date);
    list.push_back(Json(toJson(item)));
  }
  const Json envelope{{"version", version}, {"entries", std::move(list)}};
  std::string text;
  for (const char byte : envelope.dump(indentation)) {
    if (byte == '/') text += '\\';  // slashes occur in strings alone
    text += byte;
  }
  return text + '\n';
}

}  // namespace broomtide::HistoryCodec
