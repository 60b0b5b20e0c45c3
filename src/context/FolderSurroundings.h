#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/Messages.h"
#include "platform/FileManager.h"

namespace broomtide {

/// What speaks against everything in a folder, by the folder itself and those that it lies in:
/// places where programs are installed, hidden folders of a home, and working copies of systems
/// other than Git around it. `folder` is an absolute path without symlinks. Nothing when it lies in
/// what a version control system keeps for itself, where nothing is what its name says.
std::optional<std::vector<Message>> cautionsIn(FileManager& fileManager, const std::string& folder,
                                               std::span<const std::string> homes);

/// Whether a folder of this name, in the folder at an absolute path, belongs to the programs of a
/// user.
bool isHiddenInHome(std::string_view parent, std::string_view name,
                    std::span<const std::string> homes);

}  // namespace broomtide
