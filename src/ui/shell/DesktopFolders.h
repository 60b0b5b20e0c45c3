#pragma once

#include <optional>
#include <string>

namespace broomtide::ui {

/// The absolute path of what the desktop calls the Downloads folder, which need not exist; nothing
/// when no home folder is known. Reads the desktop's settings each time.
std::optional<std::string> desktopDownloads();

}  // namespace broomtide::ui
