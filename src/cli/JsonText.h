#pragma once

#include <ostream>
#include <string_view>

#include "core/RecordJson.h"

namespace broomtide::cli {

template <typename Record>
const Record& recordOf(const Record& record) {
  return record;
}
template <typename Record>
const Record& recordOf(const Record* record) {
  return *record;
}

/// Writes records, or what pointers to records point to, as a JSON array, one on each line, which
/// is itself indented by `indent`.
template <typename Records>
void writeArray(std::ostream& out, const Records& records, std::string_view indent) {
  std::string_view separator = "[\n";
  for (const auto& record : records) {
    out << separator << indent << "  " << toJson(recordOf(record)).dump(-1, ' ', true);
    separator = ",\n";
  }
  if (records.empty()) {
    out << "[]";
  } else {
    out << '\n' << indent << ']';
  }
}

/// The same as one field of an object.
template <typename Records>
void writeField(std::ostream& out, std::string_view name, const Records& records) {
  out << "  \"" << name << "\": ";
  writeArray(out, records, "  ");
}

}  // namespace broomtide::cli
