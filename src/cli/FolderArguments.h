#pragma once

#include <map>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "core/Enumerations.h"

namespace broomtide::cli {

/// Accepts the keys of a table, and names them when it gets something else. The table must outlive
/// the validator.
template <typename Value>
CLI::Validator oneOf(const std::map<std::string, Value>& table) {
  return CLI::Validator(
      [&table](const std::string& given) {
        if (table.contains(given)) return std::string();
        std::string keys;
        for (const auto& [key, value] : table) keys += (keys.empty() ? "" : ", ") + key;
        return "'" + given + "' is none of " + keys;
      },
      "");
}

/// Which folder to scan and what for, as the command line tells.
class FolderArguments {
 public:
  /// Adds `--mode` and `FOLDER` to a subcommand. The arguments must stay in place until the command
  /// line has been parsed.
  explicit FolderArguments(CLI::App& subcommand);

  ScanMode mode() const;

  /// The folder as an absolute path in standard form. Nothing, with the reason on standard error,
  /// for one whose place cannot be found out.
  std::optional<std::string> root() const;

 private:
  std::string mode_ = "project";
  std::string folder_;
};

}  // namespace broomtide::cli
