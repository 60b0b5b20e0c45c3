#include "cli/FolderArguments.h"

#include <filesystem>
#include <system_error>

#include "cli/Failure.h"
#include "core/Paths.h"

namespace broomtide::cli {
namespace {

const std::map<std::string, ScanMode> modes{{"project", ScanMode::project},
                                            {"caches", ScanMode::caches},
                                            {"downloads", ScanMode::downloads}};

// The absolute, lexically normal form of a path. A ".." after a link leads to where the link's
// target lies, as it does everywhere else.
std::string absolutePath(const std::string& given, std::error_code& error) {
  const std::filesystem::path absolute = std::filesystem::absolute(given, error);
  if (error) return {};
  std::filesystem::path result;
  for (const std::filesystem::path& part : absolute) {
    if (part == ".." && std::filesystem::is_symlink(result, error)) {
      result = std::filesystem::canonical(result, error);
      if (error) return {};
    }
    result = part == ".." ? result.parent_path() : result / part;
    if (part == "." || part.empty()) result = paths::standardized(result.native());
  }
  error.clear();
  return paths::standardized(result.native());
}

}  // namespace

FolderArguments::FolderArguments(CLI::App& subcommand) {
  subcommand
      .add_option("--mode", mode_,
                  "What to look for: a folder of projects (the default), developer caches\n"
                  "under a home folder, or old files in a Downloads folder")
      ->check(oneOf(modes))
      ->option_text("project|caches|downloads");
  subcommand.add_option("FOLDER", folder_, "The folder to scan")
      ->required()
      ->check([](const std::string& folder) {
        return folder.empty() ? std::string("the name of the folder is empty") : std::string();
      })
      ->option_text(" ");
}

ScanMode FolderArguments::mode() const { return modes.at(mode_); }

std::optional<std::string> FolderArguments::root() const {
  std::error_code error;
  std::string root = absolutePath(folder_, error);
  if (error) {
    fail(folder_, error.message());
    return std::nullopt;
  }
  return root;
}

}  // namespace broomtide::cli
