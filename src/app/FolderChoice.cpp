#include "app/FolderChoice.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/Paths.h"
#include "rules/CacheRules.h"

namespace broomtide::FolderChoice {
namespace {

struct Texts {
  std::string_view title;
  std::string_view prompt;
  std::string_view message;
};

constexpr std::string_view onlyThisFolder =
    "Broomtide scans only the folder you choose. Nothing is uploaded.";
constexpr Texts projectTexts{"Choose a project folder", "Scan Folder", onlyThisFolder};
constexpr Texts downloadsTexts{"Choose your Downloads folder", "Scan Folder", onlyThisFolder};
constexpr Texts cachesTexts{
    "Choose your home folder", "Scan Caches",
    "Keep your home folder selected and press Scan Caches. Broomtide checks well-known developer "
    "cache locations under it. Nothing is uploaded."};

constexpr const Texts& textsFor(ScanMode mode) {
  switch (mode) {
    case ScanMode::project:
      return projectTexts;
    case ScanMode::downloads:
      return downloadsTexts;
    case ScanMode::caches:
      break;
  }
  return cachesTexts;
}

}  // namespace

FolderRequest request(ScanMode mode, std::optional<std::string> startingAt) {
  const Texts& texts = textsFor(mode);
  return {.mode = mode,
          .startingAt = std::move(startingAt),
          .title = texts.title,
          .prompt = texts.prompt,
          .message = texts.message};
}

bool exists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

std::optional<std::string> downloads(const std::optional<std::string>& home,
                                     const std::optional<std::string>& desktopDownloads) {
  if (home) {
    std::string usual = paths::appending(*home, "Downloads");
    if (exists(usual)) return usual;
  }
  if (desktopDownloads == home || !desktopDownloads || !exists(*desktopDownloads)) return {};
  return desktopDownloads;
}

bool containsKnownCacheLocation(const std::string& folder) {
  return std::ranges::any_of(CacheRules::locations, [&folder](const CacheTarget& target) {
    return exists(paths::appending(folder, target.relativePath));
  });
}

std::string refusal(const std::string& folder, const std::optional<std::string>& home) {
  return "No known developer cache locations were found under “" +
         std::string(paths::lastComponent(paths::standardized(folder))) +
         "”. When scanning developer caches, select your home folder (" +
         home.value_or("your home folder") + ") in the picker.";
}

}  // namespace broomtide::FolderChoice
