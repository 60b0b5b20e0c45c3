#pragma once

#include <optional>
#include <string>

#include "app/Surroundings.h"
#include "core/Messages.h"

/// What people are told when they choose a folder, and which choices are turned down.
namespace broomtide::FolderChoice {

/// How the picker presents itself for a mode.
FolderRequest request(ScanMode mode, std::optional<std::string> startingAt);

/// Whether anything exists at `path`, through links; what cannot be looked at does not.
bool exists(const std::string& path);

/// Where a choice of the Downloads folder starts: at the one in the home folder, else at what the
/// desktop calls so. A desktop without any calls the home folder so, which does not count. Nothing
/// when neither exists.
std::optional<std::string> downloads(const std::optional<std::string>& home,
                                     const std::optional<std::string>& desktopDownloads);

/// Whether any of the known cache locations exists below `folder`.
bool containsKnownCacheLocation(const std::string& folder);

/// Why `folder` was turned down for a scan of caches. `home` is the home folder that is suggested
/// instead, if it is known.
Message refusal(const std::string& folder, const std::optional<std::string>& home);

}  // namespace broomtide::FolderChoice
