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

constexpr Texts projectTexts{messages::chooseProject, messages::scanFolder,
                             messages::onlyThisFolder};
constexpr Texts downloadsTexts{messages::chooseDownloads, messages::scanFolder,
                               messages::onlyThisFolder};
constexpr Texts cachesTexts{messages::chooseHome, messages::scanCaches, messages::keepHomeSelected};

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

Message refusal(const std::string& folder, const std::optional<std::string>& home) {
  const std::string whole = paths::standardized(folder);
  const std::string_view name = paths::lastComponent(whole);
  return {
      .pattern = messages::noCachesFound,
      .values = {nameValue(std::string(name)),
                 home ? nameValue(*home) : termsValue({std::string(messages::yourHomeFolder)})}};
}

}  // namespace broomtide::FolderChoice
